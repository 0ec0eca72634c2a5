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

# Sets what every target of ours has: includes from the root, precompiled Qt headers, clang-tidy.
function(velmora_target target)
    target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}" "${PROJECT_BINARY_DIR}")
    target_link_libraries(${target} PUBLIC Qt6::Widgets)
    target_precompile_headers(${target} REUSE_FROM QtHeaders)
    if(CMAKE_CXX_CLANG_TIDY)
        # What moc and rcc make is not ours to keep tidy; one check has to be on.
        foreach(generated "${target}_autogen" ".rcc")
            file(WRITE "${CMAKE_CURRENT_BINARY_DIR}/${generated}/.clang-tidy" "Checks: '-*,llvm-twine-local'\n")
        endforeach()
    endif()
    add_dependencies(sources ${target})
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
            COMMAND Qt6::uic --tr localizedSyncString --include Platform/Foundation/Localization.h
                    -o "${directory}/${header}" "${form}"
            DEPENDS "${form}"
            VERBATIM)
        target_sources(${target} PRIVATE "${directory}/${header}")
    endforeach()
    target_include_directories(${target} PRIVATE "${directory}")
endfunction()
