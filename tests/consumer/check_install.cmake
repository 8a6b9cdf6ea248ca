# Installs the build into a scratch prefix, then builds and runs an outside
# consumer with find_package, and compiles it once more with pkg-config flags.
# EXTRA_FLAGS carries the sanitizer flags of a sanitized build to the consumer.
file(REMOVE_RECURSE "${WORK_DIR}")
set(prefix "${WORK_DIR}/prefix")

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "failed: ${ARGN}\n${out}\n${err}")
  endif()
  set(run_output "${out}" PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")
run(${CMAKE_COMMAND} -S "${CONSUMER_DIR}" -B "${WORK_DIR}/build" -G "${GENERATOR}"
    "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_CXX_FLAGS=${EXTRA_FLAGS}")
run(${CMAKE_COMMAND} --build "${WORK_DIR}/build")
run("${WORK_DIR}/build/consumer")
message(STATUS "${run_output}")

file(GLOB_RECURSE pc_file "${prefix}/*/VYRMMedia2DRendering.pc")
get_filename_component(pc_dir "${pc_file}" DIRECTORY)
set(ENV{PKG_CONFIG_PATH} "${pc_dir}")
run(pkg-config --cflags --libs VYRMMedia2DRendering)
string(STRIP "${run_output}" flags)
separate_arguments(flags UNIX_COMMAND "${flags}")
get_filename_component(lib_dir "${pc_dir}" DIRECTORY)
run(c++ -std=c++17 ${EXTRA_FLAGS} "${CONSUMER_DIR}/consumer.cpp" ${flags} "-Wl,-rpath,${lib_dir}" -o "${WORK_DIR}/consumer-pc")
run("${WORK_DIR}/consumer-pc")
message(STATUS "pkg-config build: ${run_output}")
