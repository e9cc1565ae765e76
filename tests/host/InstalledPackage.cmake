# Installs the built tree under PREFIX and checks what a host developer
# relies on there: every file where the CMake package, pkg-config and the
# module's own lookup expect it, and an installed krn-panel that runs.
#   cmake -DBUILD_DIR=... -DPREFIX=... -DVERSION=... -DMAJOR=... -DBINDIR=...
#         -DLIBDIR=... -DMODULEDIR=... -DINCLUDEDIR=... -P InstalledPackage.cmake

file(REMOVE_RECURSE "${PREFIX}")
execute_process(COMMAND ${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${PREFIX}"
  RESULT_VARIABLE code OUTPUT_QUIET ERROR_VARIABLE err)
if(NOT code EQUAL 0)
  message(FATAL_ERROR "cmake --install failed: ${err}")
endif()

set(expected
  ${BINDIR}/krn-panel
  ${MODULEDIR}/KRNPANEL.rcc
  ${LIBDIR}/libKRNProcessMachineEngine.so.${MAJOR}
  ${LIBDIR}/libKRNProcessMachineEngine.so.${VERSION}
  ${LIBDIR}/pkgconfig/KRNProcessMachineEngine.pc
  ${LIBDIR}/cmake/KRNProcessMachineEngine/KRNProcessMachineEngineConfig.cmake
  ${LIBDIR}/cmake/KRNProcessMachineEngine/KRNProcessMachineEngineConfigVersion.cmake
  ${INCLUDEDIR}/KRNProcessMachineEngine/KRNProMachineInterface.h
  ${INCLUDEDIR}/KRNProcessMachineEngine/KRNMachineData.h
  ${INCLUDEDIR}/KRNProcessMachineEngine/KRNPanelMessages.h)
foreach(file ${expected})
  if(NOT EXISTS "${PREFIX}/${file}")
    message(SEND_ERROR "not installed: ${file}")
  endif()
endforeach()

# The library's SONAME carries the major version only.
find_program(OBJDUMP objdump)
if(OBJDUMP)
  execute_process(COMMAND ${OBJDUMP} -p "${PREFIX}/${LIBDIR}/libKRNProcessMachineEngine.so.${VERSION}"
    OUTPUT_VARIABLE headers)
  if(NOT headers MATCHES "SONAME +libKRNProcessMachineEngine\\.so\\.${MAJOR}\n")
    message(SEND_ERROR "the library's SONAME is not libKRNProcessMachineEngine.so.${MAJOR}")
  endif()
endif()

# The installed program, run from elsewhere, reports the project's version and
# finds the installed resource module (the keypad's template is in it).
execute_process(COMMAND "${PREFIX}/${BINDIR}/krn-panel" --version WORKING_DIRECTORY "${PREFIX}"
  OUTPUT_VARIABLE out RESULT_VARIABLE code)
if(NOT code EQUAL 0 OR NOT out STREQUAL "krn-panel ${VERSION}\n")
  message(SEND_ERROR "krn-panel --version gave ${code}: '${out}'")
endif()
file(WRITE "${PREFIX}/confirm.txt" "expect 1366 2\nclick 1387\n")
execute_process(COMMAND "${PREFIX}/${BINDIR}/krn-panel" keypad 2 5 --script "${PREFIX}/confirm.txt"
  WORKING_DIRECTORY "${PREFIX}" OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE code)
if(NOT code EQUAL 0 OR NOT out STREQUAL "2\n")
  message(SEND_ERROR "the installed krn-panel did not run the keypad (exit ${code}): '${out}' ${err}")
endif()

# pkg-config finds the package where it was put, not where it was meant to go.
find_program(PKG_CONFIG pkg-config)
if(PKG_CONFIG)
  set(ENV{PKG_CONFIG_PATH} "${PREFIX}/${LIBDIR}/pkgconfig")
  execute_process(COMMAND ${PKG_CONFIG} --modversion KRNProcessMachineEngine OUTPUT_VARIABLE version
    OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE code)
  if(NOT code EQUAL 0 OR NOT version STREQUAL VERSION)
    message(SEND_ERROR "pkg-config --modversion gave '${version}'")
  endif()
  execute_process(COMMAND ${PKG_CONFIG} --cflags --libs KRNProcessMachineEngine OUTPUT_VARIABLE flags
    OUTPUT_STRIP_TRAILING_WHITESPACE)
  separate_arguments(flags UNIX_COMMAND "${flags}")
  foreach(flag ${flags})
    string(REGEX REPLACE "^-[IL]" "" dir "${flag}")
    if(NOT dir STREQUAL flag)
      file(REAL_PATH "${dir}" dir)
      file(REAL_PATH "${PREFIX}" root)
      if(NOT dir MATCHES "^${root}/" OR NOT IS_DIRECTORY "${dir}")
        message(SEND_ERROR "pkg-config points to ${dir}, outside ${root}")
      endif()
    endif()
  endforeach()
endif()
