# Installs the build tree into a fresh prefix, builds the consumer programs
# against it (with find_package, and the C one also with pkg-config), runs
# them and the installed tool, and checks what they print. Run by CTest:
# With PYTHON (an interpreter with numpy) it also imports the installed
# Python package, which must find the installed library by itself.
#   cmake -DBUILD_DIR=... -DWORK_DIR=... -DCONSUMER_DIR=... -DGENERATOR=...
#         -DC_COMPILER=... -DCXX_COMPILER=... -DTEST_HOME=... [-DPYTHON=...
#         -DPYTHON_DIR=...] -P RunInstallTest.cmake

# UTM-32 of longitude 9.5, latitude 48.25 on WGS 84, to the centimetre:
#   echo 9.5 48.25 0 0 | cct -d 6 +proj=utm +zone=32 +ellps=WGS84
#   537117.141935  5344208.122025  0.000000  0.0000
set(expected_point "537117.14 5344208.12")

set(prefix ${WORK_DIR}/prefix)
set(run_env HOME=${TEST_HOME} XDG_DATA_HOME=${TEST_HOME}/data)

function(run_checked)
  cmake_parse_arguments(arg "" "OUTPUT_VARIABLE" "COMMAND" ${ARGN})
  execute_process(COMMAND ${CMAKE_COMMAND} -E env ${run_env} ${arg_COMMAND}
    RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT result EQUAL 0)
    string(REPLACE ";" " " shown "${arg_COMMAND}")
    message(FATAL_ERROR "failed (${result}): ${shown}\n${out}\n${err}")
  endif()
  if(arg_OUTPUT_VARIABLE)
    string(STRIP "${out}" out)
    set(${arg_OUTPUT_VARIABLE} "${out}" PARENT_SCOPE)
  endif()
endfunction()

function(expect_output what actual expected)
  if(NOT actual STREQUAL expected)
    message(FATAL_ERROR "${what} printed '${actual}', expected '${expected}'")
  endif()
  message(STATUS "${what}: ${actual}")
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${TEST_HOME})
run_checked(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

foreach(installed
    lib/libgxcart.so include/gxcart.h include/gxcart/foundation/GxExport.h
    include/gxcart/mapprojection/MapProjection.h include/gxcart/datum/DatumConverter.h
    share/gxcart/ellipsoid.zpf share/gxcart/map_projection.zpf
    lib/cmake/GxCart/GxCartConfig.cmake lib/cmake/GxCart/GxCartConfigVersion.cmake
    lib/pkgconfig/gxcart.pc bin/gxcart)
  if(NOT EXISTS ${prefix}/${installed})
    message(FATAL_ERROR "not installed: ${installed}")
  endif()
endforeach()
# The library keeps its internals to itself: no data beside the library, no
# keyword-file headers among the public ones.
foreach(absent lib/ellipsoid.zpf include/gxcart/zpf)
  if(EXISTS ${prefix}/${absent})
    message(FATAL_ERROR "installed but private: ${absent}")
  endif()
endforeach()

set(consumer_build ${WORK_DIR}/consumer)
run_checked(COMMAND ${CMAKE_COMMAND} -S ${CONSUMER_DIR} -B ${consumer_build} -G ${GENERATOR}
  -DCMAKE_BUILD_TYPE=Release -DCMAKE_PREFIX_PATH=${prefix}
  -DCMAKE_C_COMPILER=${C_COMPILER} -DCMAKE_CXX_COMPILER=${CXX_COMPILER})
run_checked(COMMAND ${CMAKE_COMMAND} --build ${consumer_build} -j 2)

# The programs find the library through the run path CMake gives them and the
# library finds its catalogue in share/gxcart ("UTM-32" is a catalogue name).
run_checked(COMMAND ${consumer_build}/consumer_c OUTPUT_VARIABLE c_out)
expect_output("C program (find_package)" "${c_out}" "${expected_point}")
run_checked(COMMAND ${consumer_build}/consumer_cxx OUTPUT_VARIABLE cxx_out)
expect_output("C++ program (find_package)" "${cxx_out}" "${expected_point}")

find_program(PKG_CONFIG pkg-config)
if(PKG_CONFIG)
  set(ENV{PKG_CONFIG_PATH} ${prefix}/lib/pkgconfig)
  run_checked(COMMAND ${PKG_CONFIG} --cflags --libs gxcart OUTPUT_VARIABLE flags)
  separate_arguments(flags UNIX_COMMAND "${flags}")
  run_checked(COMMAND ${C_COMPILER} -std=c99 -o ${WORK_DIR}/consumer_pc
    ${CONSUMER_DIR}/consumer.c ${flags})
  set(run_env ${run_env} LD_LIBRARY_PATH=${prefix}/lib)
  run_checked(COMMAND ${WORK_DIR}/consumer_pc OUTPUT_VARIABLE pc_out)
  expect_output("C program (pkg-config)" "${pc_out}" "${expected_point}")
else()
  message(STATUS "pkg-config not found: the gxcart.pc build is not checked")
endif()

file(WRITE ${WORK_DIR}/point.txt "9.5 48.25\n")
run_checked(COMMAND ${prefix}/bin/gxcart convert --from LONG/LAT --to UTM-32 --precision 2
  ${WORK_DIR}/point.txt OUTPUT_VARIABLE tool_out)
expect_output("installed gxcart convert" "${tool_out}" "${expected_point}")

if(PYTHON AND NOT IS_ABSOLUTE "${PYTHON_DIR}")
  # Only the import path is given (the temporary prefix is on no default
  # one); the library is found from the package, not from a variable. (No
  # semicolons in the program: CMake would split it there.)
  set(probe "import gxcart\nprint(gxcart.load_library())\nprint('%.2f %.2f' % gxcart.MapProjection('UTM-32').geo2proj(9.5, 48.25))")
  run_checked(COMMAND ${CMAKE_COMMAND} -E env --unset=GXCART_LIBRARY --unset=LD_LIBRARY_PATH
    PYTHONPATH=${prefix}/${PYTHON_DIR} ${PYTHON} -c ${probe} OUTPUT_VARIABLE python_out)
  string(REPLACE "\n" ";" python_lines "${python_out}")
  list(GET python_lines 0 python_library)
  list(GET python_lines 1 python_point)
  expect_output("installed Python package finds" "${python_library}" "${prefix}/lib/libgxcart.so")
  expect_output("installed Python package" "${python_point}" "${expected_point}")
else()
  message(STATUS "no python3 with numpy, or the package not installed: not checked")
endif()
