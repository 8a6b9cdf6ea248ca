include(CMakePackageConfigHelpers)

file(GLOB VYR_PUBLIC_HEADERS CONFIGURE_DEPENDS Platform/include/*.h ProtectedInterfaces/*.h)
install(FILES ${VYR_PUBLIC_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/VYRMMedia2DRendering)
install(TARGETS VYRMMedia2DRendering EXPORT VYRMMedia2DRenderingTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(EXPORT VYRMMedia2DRenderingTargets
  NAMESPACE VYRMMedia2DRendering::
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VYRMMedia2DRendering)
configure_package_config_file(cmake/VYRMMedia2DRenderingConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/VYRMMedia2DRenderingConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VYRMMedia2DRendering)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/VYRMMedia2DRenderingConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/VYRMMedia2DRenderingConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/VYRMMedia2DRenderingConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VYRMMedia2DRendering)

configure_file(cmake/VYRMMedia2DRendering.pc.in ${CMAKE_CURRENT_BINARY_DIR}/VYRMMedia2DRendering.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/VYRMMedia2DRendering.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# The installation root carries the resources (VYRInstallPath=<prefix>/share/VYRMMedia2DRendering).
install(FILES ${VYR_SVG_DTD_FILES} DESTINATION ${CMAKE_INSTALL_DATADIR}/VYRMMedia2DRendering/resources/reffiles/svg_dtd)
install(DIRECTORY resources/ICCColorProfiles DESTINATION ${CMAKE_INSTALL_DATADIR}/VYRMMedia2DRendering/resources
  FILES_MATCHING PATTERN "*.icc" PATTERN "*.icm")
