# The compiler settings that every target of the project is built with.
add_library(zelvar_build_settings INTERFACE)
target_compile_definitions(zelvar_build_settings INTERFACE
    QT_DEPRECATED_WARNINGS QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII
    ZELVAR_VERSION="${PROJECT_VERSION}")
target_include_directories(zelvar_build_settings INTERFACE ${PROJECT_SOURCE_DIR})
if(MSVC)
    target_compile_options(zelvar_build_settings INTERFACE /W4 /utf-8 $<$<BOOL:${ZELVAR_WARNINGS_AS_ERRORS}>:/WX>)
else()
    target_compile_options(zelvar_build_settings INTERFACE
        -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
        $<$<BOOL:${ZELVAR_WARNINGS_AS_ERRORS}>:-Werror>)
endif()
if(ZELVAR_SANITIZERS)
    target_compile_options(zelvar_build_settings INTERFACE
        -fsanitize=${ZELVAR_SANITIZERS} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(zelvar_build_settings INTERFACE -fsanitize=${ZELVAR_SANITIZERS})
endif()

# Where libraries lie that the programs load when they need them: where the shared library is installed, and in the
# build folder in the same place seen from the programs; without run paths, on Windows, beside them.
if(WIN32)
    set(zelvar_plugins_from_programs .)
else()
    file(RELATIVE_PATH zelvar_plugins_from_programs
        ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR}/zelvar-servo-manager)
endif()
get_filename_component(zelvar_plugins_folder
    ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${zelvar_plugins_from_programs} ABSOLUTE)

# zelvar_module(NAME SOURCES... LINKS ...): one folder of the program as a static library. What a module may
# include is what it links, so the link list is the module's list of allowed arrows.
function(zelvar_module name)
    cmake_parse_arguments(PARSE_ARGV 1 MODULE "" "" "SOURCES;LINKS")
    add_library(zelvar_${name} STATIC ${MODULE_SOURCES})
    target_link_libraries(zelvar_${name} PUBLIC zelvar_build_settings ${MODULE_LINKS})
endfunction()
