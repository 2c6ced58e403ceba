# Installation of libgxcart.so and everything a program needs to build and run
# against it:
#   lib/libgxcart.so*            the library
#   share/gxcart/                its catalogue files; the library looks for
#                                them at ../share/gxcart/ beside its folder,
#                                which is why the library folder is plain lib/
#   include/gxcart.h             the flat C interface
#   include/gxcart/<subsystem>/  the C++ headers of the exported classes, in
#                                their source folders so that their own
#                                #include "foundation/..." lines resolve
#   lib/cmake/GxCart/            find_package(GxCart) -> GxCart::gxcart
#   lib/pkgconfig/gxcart.pc      the same for pkg-config
#   lib/python3.X/dist-packages/gxcart/   the Python package (see the end)
# Included from src/CMakeLists.txt, where the gxcart target and its data file
# list are defined.

include(CMakePackageConfigHelpers)

set(GXCART_INSTALL_LIBDIR lib)
set(GXCART_INSTALL_DATADIR share/gxcart)
set(GXCART_INSTALL_CMAKEDIR ${GXCART_INSTALL_LIBDIR}/cmake/GxCart)

# The public C++ headers: every header that declares something exported, and
# every project header those include, so that each installed header compiles
# on its own. Helpers used only inside the library stay private.
function(gxcart_public_headers source_dir out_var)
  file(GLOB candidates RELATIVE ${source_dir} CONFIGURE_DEPENDS ${source_dir}/*/*.h)
  set(pending)
  foreach(header ${candidates})
    file(STRINGS ${source_dir}/${header} marks REGEX "GXCART_API")
    if(marks)
      list(APPEND pending ${header})
    endif()
  endforeach()
  set(public)
  while(pending)
    list(POP_FRONT pending header)
    if(header IN_LIST public)
      continue()
    endif()
    list(APPEND public ${header})
    file(STRINGS ${source_dir}/${header} includes REGEX "^#include \"[^\"]+\"")
    foreach(line ${includes})
      string(REGEX REPLACE "^#include \"([^\"]+)\".*" "\\1" included "${line}")
      if(EXISTS ${source_dir}/${included})
        list(APPEND pending ${included})
      endif()
    endforeach()
  endwhile()
  list(SORT public)
  set(${out_var} ${public} PARENT_SCOPE)
endfunction()

gxcart_public_headers(${PROJECT_SOURCE_DIR}/src GXCART_PUBLIC_HEADERS)
foreach(header ${GXCART_PUBLIC_HEADERS})
  get_filename_component(subsystem ${header} DIRECTORY)
  install(FILES ${PROJECT_SOURCE_DIR}/src/${header} DESTINATION include/gxcart/${subsystem})
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/include/gxcart.h DESTINATION include)

install(TARGETS gxcart EXPORT GxCartTargets
  LIBRARY DESTINATION ${GXCART_INSTALL_LIBDIR}
  INCLUDES DESTINATION include include/gxcart)
install(FILES ${GXCART_DATA_FILES} DESTINATION ${GXCART_INSTALL_DATADIR})

install(EXPORT GxCartTargets NAMESPACE GxCart:: DESTINATION ${GXCART_INSTALL_CMAKEDIR})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/GxCartConfig.cmake.in
  ${PROJECT_BINARY_DIR}/GxCartConfig.cmake INSTALL_DESTINATION ${GXCART_INSTALL_CMAKEDIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/GxCartConfigVersion.cmake
  VERSION ${PROJECT_VERSION} COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/GxCartConfig.cmake ${PROJECT_BINARY_DIR}/GxCartConfigVersion.cmake
  DESTINATION ${GXCART_INSTALL_CMAKEDIR})

configure_file(${PROJECT_SOURCE_DIR}/gxcart.pc.in ${PROJECT_BINARY_DIR}/gxcart.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/gxcart.pc DESTINATION ${GXCART_INSTALL_LIBDIR}/pkgconfig)

# The Python package, where the system's Python finds it under the prefix
# (Debian: lib/python3.X/dist-packages, on the path for /usr/local and /usr;
# elsewhere lib/python3.X/site-packages), with _installed.py naming the
# library above. -DGXCART_INSTALL_PYTHONDIR=... chooses another folder,
# -DGXCART_INSTALL_PYTHON=OFF leaves the package out.
option(GXCART_INSTALL_PYTHON "Install the Python package gxcart with the library" ON)
if(GXCART_INSTALL_PYTHON AND NOT GXCART_INSTALL_PYTHONDIR)
  find_program(GXCART_INSTALL_PYTHON_INTERPRETER python3 PATHS /usr/bin NO_DEFAULT_PATH)
  find_program(GXCART_INSTALL_PYTHON_INTERPRETER python3)
  if(GXCART_INSTALL_PYTHON_INTERPRETER)
    execute_process(COMMAND ${GXCART_INSTALL_PYTHON_INTERPRETER} -c
      "import sys; print('lib/python%d.%d/%s' % (sys.version_info[0], sys.version_info[1], 'dist-packages' if any(p.endswith('dist-packages') for p in sys.path) else 'site-packages'))"
      OUTPUT_VARIABLE python_dir OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE failed)
    if(NOT failed)
      set(GXCART_INSTALL_PYTHONDIR ${python_dir} CACHE STRING
        "Folder (under the prefix unless absolute) for the Python package gxcart")
    endif()
  endif()
  if(NOT GXCART_INSTALL_PYTHONDIR)
    message(STATUS "No python3 found: the Python package is not installed "
                   "(set GXCART_INSTALL_PYTHONDIR to install it)")
  endif()
endif()
if(GXCART_INSTALL_PYTHON AND GXCART_INSTALL_PYTHONDIR)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/python/gxcart DESTINATION ${GXCART_INSTALL_PYTHONDIR}
    FILES_MATCHING PATTERN "*.py"
    PATTERN "__pycache__" EXCLUDE PATTERN "_installed.py" EXCLUDE)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/GxCartPythonLocation.cmake.in
    ${PROJECT_BINARY_DIR}/GxCartPythonLocation.cmake @ONLY)
  install(SCRIPT ${PROJECT_BINARY_DIR}/GxCartPythonLocation.cmake)
endif()
