# One target per folder of src/. A floor is a static library whose sources are the files of its folder;
# what it may include is checked by the test "layers", what it links is said where it is declared.

add_library(velmarch_flags INTERFACE)
target_compile_options(velmarch_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Werror)
target_compile_definitions(velmarch_flags INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
target_include_directories(velmarch_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(VELMARCH_SANITIZE)
    # Instrumented code makes g++ 12 warn of std::variant members that are never read; -Werror would stop the build.
    target_compile_options(velmarch_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                    -fno-omit-frame-pointer -Wno-maybe-uninitialized)
    target_link_options(velmarch_flags INTERFACE -fsanitize=address,undefined)
endif()
if(VELMARCH_FUZZ)
    # The warnings that count are those of the compiler that makes the programs.
    target_compile_options(velmarch_flags INTERFACE -w -fsanitize=fuzzer-no-link,address,undefined
                                                    -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(velmarch_flags INTERFACE -fsanitize=address,undefined)
endif()

# velmarch_floor(NAME LINKS target...): the static library of the current folder, alias Velmarch::NAME.
function(velmarch_floor name)
    cmake_parse_arguments(FLOOR "" "" "LINKS" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h
         ${CMAKE_CURRENT_SOURCE_DIR}/*.qrc)
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    add_library(velmarch_${name} STATIC ${sources})
    add_library(Velmarch::${name} ALIAS velmarch_${name})
    set_target_properties(velmarch_${name} PROPERTIES LINKER_LANGUAGE CXX)
    target_link_libraries(velmarch_${name} PUBLIC velmarch_flags ${FLOOR_LINKS})
    # Reading these takes most of the time that a file takes. The preset for clang-tidy goes without, so that each file
    # still has to include what it uses.
    target_precompile_headers(velmarch_${name} PRIVATE <QByteArray> <QHash> <QString> <QStringList> <algorithm> <array>
                              <functional> <memory> <optional> <span> <variant> <vector>)
    if(Qt6::Widgets IN_LIST FLOOR_LINKS)
        target_precompile_headers(velmarch_${name} PRIVATE <QtWidgets>)
    endif()
endfunction()

# velmarch_tests(LINKS target...): every Test*.cpp of the current folder is a Qt Test program and a ctest.
function(velmarch_tests)
    cmake_parse_arguments(TESTS "" "" "LINKS" ${ARGN})
    file(GLOB_RECURSE tests CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/Test*.cpp)
    set(first "")
    foreach(file ${tests})
        get_filename_component(name ${file} NAME_WE)
        add_executable(${name} ${file})
        target_link_libraries(${name} PRIVATE ${TESTS_LINKS} Velmarch::test_support Qt6::Test)
        target_compile_definitions(${name} PRIVATE
            TEST_SOURCE_DIR="${CMAKE_CURRENT_SOURCE_DIR}" TEST_BIN_DIR="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
        if(first)
            target_precompile_headers(${name} REUSE_FROM ${first})
        else()
            target_precompile_headers(${name} PRIVATE <QtTest>)
            set(first ${name})
        endif()
        add_test(NAME ${name} COMMAND ${name})
        set_tests_properties(${name} PROPERTIES TIMEOUT 300
            ENVIRONMENT "QT_QPA_PLATFORM=offscreen;TZ=UTC;LC_ALL=C.UTF-8")
    endforeach()
endfunction()
