# Helpers shared by every folder: one engine library per subsystem, tests tagged by area.

# zunbrix_library(<name> SOURCES ... [LIBS ...])
# An engine library; links QtCore only (plus whatever LIBS names).
function(zunbrix_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC Qt6::Core ${ARG_LIBS})
  target_compile_definitions(${name} PUBLIC QT_NO_KEYWORDS)
endfunction()

# zunbrix_window_library(<name> SOURCES ... [LIBS ...])
# A library of Qt Widgets windows over the engine (with moc and resources); the program and its tests link it.
function(zunbrix_window_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC Qt6::Widgets ${ARG_LIBS})
  target_compile_definitions(${name} PUBLIC QT_NO_KEYWORDS)
  set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON)
endfunction()

# zunbrix_test(<name> LABEL <area> SOURCES ... [LIBS ...] [TIMEOUT <seconds>])
# A GoogleTest executable registered with ctest under one area label. TIMEOUT bounds each test, for tests whose
# failure could be a hang.
function(zunbrix_test name)
  cmake_parse_arguments(ARG "" "LABEL;TIMEOUT" "SOURCES;LIBS" ${ARGN})
  if(NOT ARG_LABEL)
    message(FATAL_ERROR "zunbrix_test(${name}) needs a LABEL")
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gtest GTest::gtest_main)
  # Shared test helpers: #include "support/private_settings.h"
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  set(properties LABELS ${ARG_LABEL})
  if(ARG_TIMEOUT)
    list(APPEND properties TIMEOUT ${ARG_TIMEOUT})
  endif()
  gtest_discover_tests(${name}
    PROPERTIES ${properties}
    DISCOVERY_TIMEOUT 60)
endfunction()

# zunbrix_fuzz_target(<name> SOURCES ... [LIBS ...])
# A libFuzzer program, built only with ZUNBRIX_FUZZ (clang, sanitizers on).
function(zunbrix_fuzz_target name)
  if(NOT ZUNBRIX_FUZZ)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
endfunction()

# zunbrix_bench(<name> SOURCES ... [LIBS ...])
function(zunbrix_bench name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} benchmark::benchmark benchmark::benchmark_main)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bench)
endfunction()

# zunbrix_embed_file(<target> <file> <symbol>)
# Compiles the bytes of <file> into <target> as zunbrix::embedded::<symbol> (with <symbol>Size), rebuilt when
# the file changes; lets tables stay human-editable data files.
function(zunbrix_embed_file target file symbol)
  set(input ${CMAKE_CURRENT_SOURCE_DIR}/${file})
  set(output ${CMAKE_CURRENT_BINARY_DIR}/embedded_${symbol}.cpp)
  add_custom_command(OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -DINPUT=${input} -DOUTPUT=${output} -DSYMBOL=${symbol}
            -P ${PROJECT_SOURCE_DIR}/cmake/EmbedFile.cmake
    DEPENDS ${input} ${PROJECT_SOURCE_DIR}/cmake/EmbedFile.cmake
    COMMENT "Embedding ${file}"
    VERBATIM)
  target_sources(${target} PRIVATE ${output})
endfunction()
