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

# zunbrix_test(<name> LABEL <area> SOURCES ... [LIBS ...])
# A GoogleTest executable registered with ctest under one area label.
function(zunbrix_test name)
  cmake_parse_arguments(ARG "" "LABEL" "SOURCES;LIBS" ${ARGN})
  if(NOT ARG_LABEL)
    message(FATAL_ERROR "zunbrix_test(${name}) needs a LABEL")
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gtest GTest::gtest_main)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  gtest_discover_tests(${name}
    PROPERTIES LABELS ${ARG_LABEL}
    DISCOVERY_TIMEOUT 60)
endfunction()

# zunbrix_bench(<name> SOURCES ... [LIBS ...])
function(zunbrix_bench name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} benchmark::benchmark benchmark::benchmark_main)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bench)
endfunction()
