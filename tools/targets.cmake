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

# Makes the library NAME, which precompiles the headers of the Qt modules in ARGN for other targets.
function(velmora_precompiled_headers name)
    file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/${name}.cpp" CONTENT "")
    add_library(${name} STATIC "${PROJECT_BINARY_DIR}/${name}.cpp")
    set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTORCC OFF)
    set(headers <functional> <memory>)
    foreach(module IN LISTS ARGN)
        target_link_libraries(${name} PRIVATE Qt6::${module})
        list(APPEND headers <Qt${module}/Qt${module}>)
    endforeach()
    target_precompile_headers(${name} PRIVATE ${headers})
endfunction()

velmora_precompiled_headers(CoreHeaders Core)
velmora_precompiled_headers(WidgetHeaders Core Widgets)

# Sets the properties that all targets share: includes from the root, precompiled Qt headers, and the
# checks of style and headers. A target links Qt Core only, unless the option WIDGETS is given.
function(velmora_target target)
    cmake_parse_arguments(TARGET "WIDGETS" "" "" ${ARGN})
    target_include_directories(${target} PUBLIC
        "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>" "$<BUILD_INTERFACE:${PROJECT_BINARY_DIR}>")
    if(TARGET_WIDGETS)
        target_link_libraries(${target} PUBLIC Qt6::Widgets)
        target_precompile_headers(${target} REUSE_FROM WidgetHeaders)
    else()
        target_link_libraries(${target} PUBLIC Qt6::Core)
        target_precompile_headers(${target} REUSE_FROM CoreHeaders)
    endif()
    velmora_style(${target})
    velmora_headers(${target})
endfunction()

# The folder of the plug-ins and of the libraries that only the program needs, built and installed.
set(VELMORA_PRIVATE_FOLDER "${CMAKE_INSTALL_LIBDIR}/velmora")

# Builds the plug-in or library NAME in the program's own folder, and installs it there.
function(velmora_install_private target)
    set_target_properties(${target} PROPERTIES
        LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/${VELMORA_PRIVATE_FOLDER}"
        INSTALL_RPATH "$ORIGIN:$ORIGIN/..")
    install(TARGETS ${target} LIBRARY DESTINATION "${VELMORA_PRIVATE_FOLDER}" COMPONENT Program)
endfunction()

# Installs the library TARGET, with which hosts link, under its version, and its HEADERS and GENERATED ones.
function(velmora_install_library target)
    cmake_parse_arguments(LIBRARY "" "" "HEADERS;GENERATED" ${ARGN})
    target_sources(${target}
        PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}" FILES ${LIBRARY_HEADERS}
        PUBLIC FILE_SET generated TYPE HEADERS BASE_DIRS "${PROJECT_BINARY_DIR}" FILES ${LIBRARY_GENERATED})
    set_target_properties(${target} PROPERTIES
        VERSION "${PROJECT_VERSION}" SOVERSION "${PROJECT_VERSION_MAJOR}" INSTALL_RPATH "$ORIGIN")
    list(TRANSFORM LIBRARY_HEADERS REPLACE "^[^/].*$" "${CMAKE_CURRENT_SOURCE_DIR}/\\0")
    set_property(GLOBAL APPEND PROPERTY VELMORA_INSTALLED_HEADERS ${LIBRARY_HEADERS})
    set(headers DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/velmora" COMPONENT Host)
    install(TARGETS ${target} EXPORT VelmoraHost
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Program NAMELINK_COMPONENT Host
        FILE_SET HEADERS ${headers} FILE_SET generated ${headers})
endfunction()

# The target "headers" compiles each header on its own, so that it includes all that it uses. It
# leaves out those that a source of the same name includes first: the preset "plain" compiles these.
add_custom_target(headers)

function(velmora_headers target)
    get_target_property(headers ${target} SOURCES)
    list(FILTER headers INCLUDE REGEX "\\.h$")
    list(TRANSFORM headers REPLACE "^[^/].*$" "${CMAKE_CURRENT_SOURCE_DIR}/\\0")
    set(pieces "")
    foreach(header IN LISTS headers)
        string(REGEX REPLACE "\\.h$" ".cpp" source "${header}")
        if(EXISTS "${source}")
            continue()
        endif()
        file(RELATIVE_PATH name "${PROJECT_SOURCE_DIR}" "${header}")
        set(piece "${PROJECT_BINARY_DIR}/Headers/${name}.cpp")
        file(CONFIGURE OUTPUT "${piece}" CONTENT "#include \"${header}\"\n" @ONLY)
        list(APPEND pieces "${piece}")
    endforeach()
    if(NOT pieces)
        return()
    endif()
    set(checked "${target}Headers")
    add_library(${checked} OBJECT EXCLUDE_FROM_ALL ${pieces})
    set_target_properties(${checked} PROPERTIES
        AUTOMOC OFF AUTORCC OFF UNITY_BUILD OFF DISABLE_PRECOMPILE_HEADERS ON)
    target_include_directories(${checked} PRIVATE $<TARGET_PROPERTY:${target},INCLUDE_DIRECTORIES>)
    target_compile_definitions(${checked} PRIVATE $<TARGET_PROPERTY:${target},COMPILE_DEFINITIONS>)
    target_link_libraries(${checked} PRIVATE $<TARGET_PROPERTY:${target},LINK_LIBRARIES>)
    # Generated headers.
    add_dependencies(${checked} ${target})
    add_dependencies(headers ${checked})
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
        COMMAND clang-tidy-14 -quiet "${piece}" -- -std=c++20 "-I$<JOIN:${folders},;-I>" "-D$<JOIN:${definitions},;-D>"
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
