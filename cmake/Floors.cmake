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

# Reading the headers of Qt takes most of the time that a file takes, and precompiling them some twelve seconds. So a few
# targets do it for all: the core, what has widgets, and the tests of each. The preset for clang-tidy goes without, so
# that each file still has to include what it uses.
function(velmarch_precompiled name)
    cmake_parse_arguments(PRECOMPILED "" "" "LINKS;HEADERS" ${ARGN})
    file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp.new "// Nothing but its precompiled headers.\n")
    file(COPY_FILE ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp.new ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp ONLY_IF_DIFFERENT)
    add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    target_link_libraries(${name} PRIVATE velmarch_flags ${PRECOMPILED_LINKS})
    target_precompile_headers(${name} PRIVATE ${PRECOMPILED_HEADERS})
endfunction()
set(velmarch_core_headers <QByteArray> <QHash> <QString> <QStringList> <algorithm> <array> <functional> <memory> <optional>
                          <span> <variant> <vector>)
velmarch_precompiled(velmarch_pch_core LINKS Qt6::Core HEADERS ${velmarch_core_headers})
velmarch_precompiled(velmarch_pch_widgets LINKS Qt6::Widgets Qt6::Svg HEADERS ${velmarch_core_headers} <QtWidgets>)
if(VELMARCH_TESTS)
    # Qt6::Test tells each target its own folders, which would make headers precompiled for one useless to the others.
    add_library(velmarch_test_flags INTERFACE)
    target_link_libraries(velmarch_test_flags INTERFACE Qt6::Test)
    target_compile_options(velmarch_test_flags INTERFACE -UQT_TESTCASE_BUILDDIR -UQT_TESTCASE_SOURCEDIR)
    velmarch_precompiled(velmarch_pch_tests LINKS velmarch_test_flags HEADERS <QtTest>)
    velmarch_precompiled(velmarch_pch_widget_tests LINKS Qt6::Widgets Qt6::Svg velmarch_test_flags HEADERS <QtWidgets> <QtTest>)
endif()

# The objects of Qt that a target has: moc makes their code. It would read all headers of Qt with each file, a second apiece, to
# find macros that nothing here uses; called without the folders of headers it takes some milliseconds and writes the same.
set(velmarch_moc ${CMAKE_BINARY_DIR}/moc)
get_target_property(velmarch_real_moc Qt6::moc IMPORTED_LOCATION)
if(NOT velmarch_real_moc)
    get_target_property(velmarch_real_moc Qt6::moc IMPORTED_LOCATION_NONE)
endif()
configure_file(${PROJECT_SOURCE_DIR}/cmake/moc.in ${velmarch_moc} @ONLY
               FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CMAKE_AUTOMOC_COMPILER_PREDEFINES OFF)
function(velmarch_has_objects target)
    set_target_properties(${target} PROPERTIES AUTOMOC ON AUTOMOC_EXECUTABLE ${velmarch_moc})
endfunction()

# velmarch_floor(NAME [OBJECTS] LINKS target...): the static library of the current folder with its rooms, alias
# Velmarch::NAME. OBJECTS: there are classes with Q_OBJECT in it.
function(velmarch_floor name)
    cmake_parse_arguments(FLOOR "OBJECTS" "" "LINKS" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h
         ${CMAKE_CURRENT_SOURCE_DIR}/*.qrc)
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    add_library(velmarch_${name} STATIC ${sources})
    add_library(Velmarch::${name} ALIAS velmarch_${name})
    set_target_properties(velmarch_${name} PROPERTIES LINKER_LANGUAGE CXX)
    if(FLOOR_OBJECTS)
        velmarch_has_objects(velmarch_${name})
    endif()
    target_link_libraries(velmarch_${name} PUBLIC velmarch_flags ${FLOOR_LINKS})
    if(Qt6::Widgets IN_LIST FLOOR_LINKS)
        target_precompile_headers(velmarch_${name} REUSE_FROM velmarch_pch_widgets)
    elseif(NOT Qt6::Test IN_LIST FLOOR_LINKS)
        target_precompile_headers(velmarch_${name} REUSE_FROM velmarch_pch_core)
    endif()
endfunction()

# velmarch_tests(NAME LINKS target...): the Test*.cpp of the current folder and its rooms make one program, tests_NAME.
# Each of their classes is a ctest of its own, run in its own process. Where widgets are linked there is a QApplication.
function(velmarch_tests name)
    cmake_parse_arguments(TESTS "" "" "LINKS" ${ARGN})
    file(GLOB_RECURSE tests CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/Test*.cpp)
    set(program tests_${name})
    add_executable(${program} ${tests} ${PROJECT_SOURCE_DIR}/tests/support/main.cpp)
    velmarch_has_objects(${program})
    target_link_libraries(${program} PRIVATE ${TESTS_LINKS} Velmarch::test_support velmarch_test_flags)
    target_compile_definitions(${program} PRIVATE
        TEST_SOURCE_DIR="${CMAKE_CURRENT_SOURCE_DIR}" TEST_BIN_DIR="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
    if(Velmarch::shell IN_LIST TESTS_LINKS)
        target_compile_definitions(${program} PRIVATE TEST_APPLICATION=QApplication TEST_APPLICATION_HEADER=<QApplication>)
        target_precompile_headers(${program} REUSE_FROM velmarch_pch_widget_tests)
    else()
        target_compile_definitions(${program} PRIVATE
            TEST_APPLICATION=QCoreApplication TEST_APPLICATION_HEADER=<QCoreApplication>)
        target_precompile_headers(${program} REUSE_FROM velmarch_pch_tests)
    endif()
    foreach(file ${tests})
        get_filename_component(class ${file} NAME_WE)
        add_test(NAME ${class} COMMAND ${program} ${class})
        set_tests_properties(${class} PROPERTIES TIMEOUT 300
            ENVIRONMENT "QT_QPA_PLATFORM=offscreen;TZ=UTC;LC_ALL=C.UTF-8")
    endforeach()
endfunction()
