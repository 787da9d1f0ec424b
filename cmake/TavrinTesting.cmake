# tavrin_add_test(NAME SOURCES ... LIBRARIES ...)
# One GoogleTest executable, registered with CTest as one test. Tests run from
# the project root so that "../shared/corpus" and "tests/data" resolve.
function(tavrin_add_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} GTest::gmock GTest::gtest_main)
  target_compile_definitions(${name} PRIVATE
    TAVRIN_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
    TAVRIN_TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data"
    TAVRIN_CORPUS_DIR="${PROJECT_SOURCE_DIR}/../shared/corpus")
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1
           WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
endfunction()
