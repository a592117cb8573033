# What every target of the project shares: language level, warnings, sanitizers, and the rule that a folder sees only
# the folders that it links.

option(KELVARNIX_WERROR "Treat warnings as errors" OFF)
option(KELVARNIX_SANITIZE "Address and undefined-behaviour sanitizers" OFF)
option(KELVARNIX_FUZZ "Build the libFuzzer targets (clang)" OFF)
# Windows makes symbolic links for administrators only.
set(useLinks ON)
if(CMAKE_HOST_WIN32)
  set(useLinks OFF)
endif()
option(KELVARNIX_INCLUDE_LINKS "Open folders to each other by symbolic links, else by forwarding headers" ${useLinks})
set(KELVARNIX_FIRST_HEADER "" CACHE STRING
    "Included before every source of the loaded module, as a host's own headers would be")

find_program(KELVARNIX_CCACHE ccache)
if(KELVARNIX_CCACHE)
  # Paths below the checkout count as relative, so that another checkout finds what this one compiled.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${KELVARNIX_CCACHE}")
endif()

# Flags are a matter of the compiler, and a module for Windows may be built by several.
set(hasGnuFlags OFF)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang" AND NOT CMAKE_CXX_COMPILER_FRONTEND_VARIANT STREQUAL "MSVC")
  set(hasGnuFlags ON)
endif()
if(NOT hasGnuFlags AND (KELVARNIX_SANITIZE OR KELVARNIX_FUZZ))
  message(FATAL_ERROR "Sanitizers and fuzz targets need GCC or Clang; ${CMAKE_CXX_COMPILER_ID} is neither")
endif()

add_library(kelvarnix_options INTERFACE)
if(hasGnuFlags)
  target_compile_options(kelvarnix_options INTERFACE -Wall -Wextra -Wpedantic)
  set(warningsAreErrors -Werror)
  set(includeFirst -include)
elseif(MSVC)
  target_compile_options(kelvarnix_options INTERFACE /W4 /permissive- /utf-8)
  set(warningsAreErrors /WX)
  set(includeFirst /FI)
endif()
if(WIN32)
  target_compile_definitions(kelvarnix_options INTERFACE NOMINMAX) # the system's headers have macros of these names
endif()
if(KELVARNIX_WERROR)
  target_compile_options(kelvarnix_options INTERFACE ${warningsAreErrors})
endif()
if(KELVARNIX_SANITIZE)
  target_compile_options(kelvarnix_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                     -fno-omit-frame-pointer)
  target_link_options(kelvarnix_options INTERFACE -fsanitize=address,undefined)
endif()

# Puts FOLDER behind an include root of its own, so that `#include "FOLDER/Name.h"` compiles only for targets that link
# TARGET. PREFIX is the path written in the include.
function(kelvarnix_include_root TARGET SCOPE FOLDER PREFIX)
  if(KELVARNIX_INCLUDE_LINKS)
    set(root "${CMAKE_BINARY_DIR}/include/${TARGET}")
    get_filename_component(parent "${root}/${PREFIX}" DIRECTORY)
    file(MAKE_DIRECTORY "${parent}")
    if(NOT EXISTS "${root}/${PREFIX}")
      file(CREATE_LINK "${FOLDER}" "${root}/${PREFIX}" SYMBOLIC)
    endif()
  else()
    set(root "${CMAKE_BINARY_DIR}/forward/${TARGET}")
    file(GLOB headers CONFIGURE_DEPENDS "${FOLDER}/*.h")
    foreach(header IN LISTS headers)
      get_filename_component(name "${header}" NAME)
      file(CONFIGURE OUTPUT "${root}/${PREFIX}/${name}" CONTENT "#include \"${header}\"\n" @ONLY)
    endforeach()
  endif()
  target_include_directories(${TARGET} ${SCOPE} "${root}")
endfunction()

# What the host loads is compiled as it would be among the host's own headers.
function(kelvarnix_include_first TARGET)
  if(KELVARNIX_FIRST_HEADER)
    target_compile_options(${TARGET} PRIVATE "SHELL:${includeFirst} ${KELVARNIX_FIRST_HEADER}")
  endif()
endfunction()

# kelvarnix_library(NAME STANDARD 17|20 PREFIX path SOURCES ... LINKS ...)
# One static library for the folder that calls it; without SOURCES an interface library of headers.
function(kelvarnix_library NAME)
  cmake_parse_arguments(ARG "" "STANDARD;PREFIX" "SOURCES;LINKS" ${ARGN})
  if(ARG_SOURCES)
    add_library(${NAME} STATIC ${ARG_SOURCES})
    target_link_libraries(${NAME} PUBLIC ${ARG_LINKS} PRIVATE kelvarnix_options)
    target_compile_features(${NAME} PUBLIC cxx_std_${ARG_STANDARD})
    set_target_properties(${NAME} PROPERTIES POSITION_INDEPENDENT_CODE ON CXX_EXTENSIONS OFF)
    if(ARG_STANDARD EQUAL 17)
      kelvarnix_include_first(${NAME})
    endif()
    kelvarnix_include_root(${NAME} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}" "${ARG_PREFIX}")
  else()
    add_library(${NAME} INTERFACE)
    target_link_libraries(${NAME} INTERFACE ${ARG_LINKS})
    target_compile_features(${NAME} INTERFACE cxx_std_${ARG_STANDARD})
    kelvarnix_include_root(${NAME} INTERFACE "${CMAKE_CURRENT_SOURCE_DIR}" "${ARG_PREFIX}")
  endif()
endfunction()

# kelvarnix_module(NAME SOURCES ... LINKS ...): an add-on module NAME.apx in bin/ of the build folder, for a host to load.
function(kelvarnix_module NAME)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${NAME} MODULE ${ARG_SOURCES})
  target_link_libraries(${NAME} PRIVATE ${ARG_LINKS} kelvarnix_options)
  set_target_properties(
    ${NAME}
    PROPERTIES PREFIX "" SUFFIX ".apx" CXX_EXTENSIONS OFF CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
               LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin" RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
  kelvarnix_include_first(${NAME})
  if(UNIX AND NOT APPLE)
    # Only the two exports are visible; everything else of the archives stays inside.
    target_link_options(${NAME} PRIVATE "LINKER:--exclude-libs,ALL" "LINKER:--no-undefined")
  endif()
endfunction()

# kelvarnix_program(NAME STANDARD 17|20 SOURCES ... LINKS ...): an executable in bin/ of the build folder.
function(kelvarnix_program NAME)
  cmake_parse_arguments(ARG "" "STANDARD" "SOURCES;LINKS" ${ARGN})
  add_executable(${NAME} ${ARG_SOURCES})
  target_link_libraries(${NAME} PRIVATE ${ARG_LINKS} kelvarnix_options)
  target_compile_features(${NAME} PRIVATE cxx_std_${ARG_STANDARD})
  set_target_properties(${NAME} PROPERTIES CXX_EXTENSIONS OFF
                                           RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
endfunction()

# kelvarnix_test(NAME SOURCES ... LINKS ...): a GoogleTest program whose cases ctest lists one by one; for another system
# than this machine's the program runs as one test, because starting the emulator takes seconds.
function(kelvarnix_test NAME)
  cmake_parse_arguments(ARG "" "STANDARD" "SOURCES;LINKS" ${ARGN})
  if(NOT ARG_STANDARD)
    set(ARG_STANDARD 20)
  endif()
  add_executable(${NAME} ${ARG_SOURCES})
  target_link_libraries(${NAME} PRIVATE ${ARG_LINKS} GTest::gtest_main kelvarnix_options)
  target_compile_features(${NAME} PRIVATE cxx_std_${ARG_STANDARD})
  target_compile_definitions(
    ${NAME} PRIVATE KELVARNIX_SOURCE_DIR="${CMAKE_SOURCE_DIR}" KELVARNIX_BIN_DIR="${CMAKE_BINARY_DIR}/bin")
  set_target_properties(${NAME} PROPERTIES CXX_EXTENSIONS OFF)
  if(CMAKE_CROSSCOMPILING)
    add_test(NAME ${NAME} COMMAND ${NAME})
    set_tests_properties(${NAME} PROPERTIES TIMEOUT 600)
  else()
    gtest_discover_tests(${NAME} DISCOVERY_TIMEOUT 120 PROPERTIES TIMEOUT 600)
  endif()
endfunction()

# kelvarnix_fuzz(NAME SOURCES ... INSTRUMENTS ... LINKS ...): a libFuzzer program (clang), run by ctest for the seconds
# that the environment's KELVARNIX_FUZZ_SECONDS says, 5 by default. The libraries under INSTRUMENTS are compiled into it
# anew, so that the fuzzer sees which of their paths it has reached. SEEDS are files to begin with. What it finds stays in
# the build folder.
function(kelvarnix_fuzz NAME)
  cmake_parse_arguments(ARG "" "" "SOURCES;INSTRUMENTS;LINKS;SEEDS" ${ARGN})
  add_executable(${NAME} ${ARG_SOURCES})
  foreach(library IN LISTS ARG_INSTRUMENTS)
    get_target_property(folder ${library} SOURCE_DIR)
    get_target_property(sources ${library} SOURCES)
    list(TRANSFORM sources PREPEND "${folder}/")
    target_sources(${NAME} PRIVATE ${sources})
    target_include_directories(${NAME} PRIVATE $<TARGET_PROPERTY:${library},INTERFACE_INCLUDE_DIRECTORIES>)
  endforeach()
  target_link_libraries(${NAME} PRIVATE ${ARG_LINKS} kelvarnix_options)
  target_compile_features(${NAME} PRIVATE cxx_std_20)
  target_compile_options(${NAME} PRIVATE -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=all)
  target_link_options(${NAME} PRIVATE -fsanitize=fuzzer,address,undefined)
  set_target_properties(${NAME} PROPERTIES CXX_EXTENSIONS OFF)
  set(corpus "${CMAKE_CURRENT_BINARY_DIR}/${NAME}_corpus")
  file(MAKE_DIRECTORY "${corpus}")
  if(ARG_SEEDS)
    file(COPY ${ARG_SEEDS} DESTINATION "${corpus}")
  endif()
  add_test(NAME fuzz.${NAME}
    COMMAND sh -c "exec \"$0\" -max_total_time=\"\${KELVARNIX_FUZZ_SECONDS:-5}\" -rss_limit_mb=4096 \"$1\""
            "$<TARGET_FILE:${NAME}>" "${corpus}"
    WORKING_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}")
  set_tests_properties(fuzz.${NAME} PROPERTIES TIMEOUT 600)
endfunction()
