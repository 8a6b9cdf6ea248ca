# The SVG 1.1 DTD comes from Debian's w3c-sgml-lib; ICC profiles ship in resources/.
set(VYR_SVG_DTD_SOURCE "/usr/share/xml/w3c-sgml-lib/schema/dtd/REC-SVG11-20110816"
    CACHE PATH "Directory holding the SVG 1.1 DTD and its modules")
if(NOT EXISTS "${VYR_SVG_DTD_SOURCE}/svg11.dtd")
  message(FATAL_ERROR "SVG 1.1 DTD not found in ${VYR_SVG_DTD_SOURCE} (install w3c-sgml-lib)")
endif()
file(GLOB VYR_SVG_DTD_FILES "${VYR_SVG_DTD_SOURCE}/*.dtd" "${VYR_SVG_DTD_SOURCE}/*.mod" "${VYR_SVG_DTD_SOURCE}/*.ent")
file(GLOB VYR_ICC_FILES CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/resources/ICCColorProfiles/*.ic[cm]")

# Copies the resources into <root>/resources so that <root> works as a VYRInstallPath entry.
function(vyr_stage_resources root)
  file(MAKE_DIRECTORY "${root}/resources/reffiles/svg_dtd" "${root}/resources/ICCColorProfiles")
  file(COPY ${VYR_SVG_DTD_FILES} DESTINATION "${root}/resources/reffiles/svg_dtd")
  if(VYR_ICC_FILES)
    file(COPY ${VYR_ICC_FILES} DESTINATION "${root}/resources/ICCColorProfiles")
  endif()
endfunction()
