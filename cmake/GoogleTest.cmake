# GoogleTest: the installed library, or its packaged source when the target system is not this machine's.
find_package(Threads REQUIRED)
include(GoogleTest)
if(CMAKE_CROSSCOMPILING)
  set(CMAKE_POLICY_DEFAULT_CMP0077 NEW)
  set(gtest_force_shared_crt ON)
  set(INSTALL_GTEST OFF)
  set(BUILD_GMOCK OFF)
  add_subdirectory(/usr/src/googletest "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
  foreach(name IN ITEMS gtest gtest_main)
    if(NOT TARGET GTest::${name})
      add_library(GTest::${name} ALIAS ${name})
    endif()
  endforeach()
else()
  # A build that only wants the programs goes without; ctest counts a selection without tests as a failure.
  find_package(GTest)
endif()

