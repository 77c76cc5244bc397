# A test program per folder of src, linking that folder's layer and the ones below it, so that the
# linker holds the layers apart. Support files are named one by one: a lower layer's tests must not
# link what needs a higher one. Tests run shuffled; the seed is printed, for state that is shared shows
# only in another order. STRIKES_FILES lets tests make the system's calls that change files fail.
function(velna_test name)
    cmake_parse_arguments(ARG "STRIKES_FILES" "" "LAYERS;SUPPORT;LIBRARIES" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${name}/*.cpp ${name}/*.h)
    if(NOT sources MATCHES "\\.cpp")
        message(FATAL_ERROR "tests/${name} has no source: a misspelt folder's tests would never run")
    endif()
    if(ARG_STRIKES_FILES)
        list(APPEND ARG_SUPPORT FileCalls.cpp)
    endif()
    list(TRANSFORM ARG_SUPPORT PREPEND support/)
    add_executable(velna_${name}_test ${sources} ${ARG_SUPPORT})
    target_include_directories(velna_${name}_test PRIVATE ${CMAKE_SOURCE_DIR}/src ${CMAKE_CURRENT_SOURCE_DIR})
    target_compile_definitions(velna_${name}_test PRIVATE
        VELNA_TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}/data"
        VELNA_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
    list(TRANSFORM ARG_LAYERS PREPEND velna_)
    target_link_libraries(velna_${name}_test PRIVATE velna_warnings velna_sanitizers ${ARG_LAYERS}
        ${ARG_LIBRARIES} GTest::gtest GTest::gtest_main nlohmann_json::nlohmann_json)
    if(ARG_STRIKES_FILES)
        foreach(call open mkostemp fchmod write fsync close link rename unlink)
            target_link_options(velna_${name}_test PRIVATE LINKER:--wrap=${call})
        endforeach()
    endif()
    add_test(NAME ${name} COMMAND velna_${name}_test --gtest_shuffle --gtest_brief=1)
    set_tests_properties(${name} PROPERTIES TIMEOUT 600)
endfunction()
