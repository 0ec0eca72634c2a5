# What the folders' own CMakeLists.txt share.

include(GenerateExportHeader)

# Finds the headers and sources of FOLDERS (relative to the calling folder) into VARIABLE.
function(velmora_sources variable)
    set(found "")
    foreach(folder IN LISTS ARGN)
        file(GLOB files CONFIGURE_DEPENDS "${folder}/*.h" "${folder}/*.cpp")
        list(APPEND found ${files})
    endforeach()
    set(${variable} "${found}" PARENT_SCOPE)
endfunction()

# Qt's headers, precompiled once for all targets.
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/QtHeaders.cpp" CONTENT "")
add_library(QtHeaders STATIC "${PROJECT_BINARY_DIR}/QtHeaders.cpp")
set_target_properties(QtHeaders PROPERTIES AUTOMOC OFF AUTORCC OFF)
target_link_libraries(QtHeaders PRIVATE Qt6::Widgets)
target_precompile_headers(QtHeaders PRIVATE <QtCore/QtCore> <QtWidgets/QtWidgets> <functional> <memory>)

# Sets what every target of ours has: includes from the root, precompiled Qt headers, style.
function(velmora_target target)
    target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}" "${PROJECT_BINARY_DIR}")
    target_link_libraries(${target} PUBLIC Qt6::Widgets)
    target_precompile_headers(${target} REUSE_FROM QtHeaders)
    velmora_style(${target})
endfunction()

# The target "style" has clang-tidy check everything but tests and benchmarks.
add_custom_target(style)

# All sources of a target are checked in one piece, since it is Qt's headers that take the time.
function(velmora_style target)
    if(CMAKE_CURRENT_SOURCE_DIR MATCHES "/(Tests|Benchmarks)")
        return()
    endif()
    set(piece "${CMAKE_CURRENT_BINARY_DIR}/${target}Style.cpp")
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    list(TRANSFORM sources REPLACE "^[^/].*$" "${CMAKE_CURRENT_SOURCE_DIR}/\\0")
    list(TRANSFORM sources REPLACE "^.+$" "#include \"\\0\"\n")
    list(JOIN sources "" includes)
    file(CONFIGURE OUTPUT "${piece}" CONTENT "${includes}" @ONLY)
    set(folders "$<TARGET_PROPERTY:${target},INCLUDE_DIRECTORIES>")
    set(definitions "$<TARGET_PROPERTY:${target},COMPILE_DEFINITIONS>")
    add_custom_target(${target}Style
        COMMAND clang-tidy -quiet "${piece}" -- -std=c++20 "-I$<JOIN:${folders},;-I>" "-D$<JOIN:${definitions},;-D>"
        COMMAND_EXPAND_LISTS VERBATIM)
    add_dependencies(${target}Style ${target})
    add_dependencies(style ${target}Style)
endfunction()

# Compiles the Designer forms of a target to headers; a form's file name may hold spaces, as nib names do.
# Their texts come from the table "Sync".
function(velmora_forms target)
    set(directory "${CMAKE_CURRENT_BINARY_DIR}/forms")
    file(MAKE_DIRECTORY "${directory}")
    foreach(form IN LISTS ARGN)
        get_filename_component(name "${form}" NAME_WE)
        string(REPLACE " " "" header "ui_${name}.h")
        add_custom_command(
            OUTPUT "${directory}/${header}"
            COMMAND Qt6::uic --tr localizedSyncString --include Host/SyncStrings.h
                    -o "${directory}/${header}" "${form}"
            DEPENDS "${form}"
            VERBATIM)
        target_sources(${target} PRIVATE "${directory}/${header}")
    endforeach()
    target_include_directories(${target} PRIVATE "${directory}")
endfunction()
