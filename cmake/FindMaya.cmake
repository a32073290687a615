# Finds the Maya 2022 devkit under MAYA_LOCATION and defines the imported
# targets Maya::Foundation, Maya::OpenMaya, Maya::OpenMayaAnim,
# Maya::OpenMayaUI and Maya::OpenMayaRender, plus Maya's own Qt 5.
set(_maya_root "${MAYA_LOCATION}")
if(APPLE)
    set(_maya_lib_dir "${_maya_root}/Maya.app/Contents/MacOS")
    set(_maya_include_dir "${_maya_root}/include")
else()
    set(_maya_lib_dir "${_maya_root}/lib")
    set(_maya_include_dir "${_maya_root}/include")
endif()

find_path(Maya_INCLUDE_DIR maya/MFn.h PATHS "${_maya_include_dir}" "${_maya_root}/devkit/include" NO_DEFAULT_PATH)
if(Maya_INCLUDE_DIR AND EXISTS "${Maya_INCLUDE_DIR}/maya/MTypes.h")
    file(STRINGS "${Maya_INCLUDE_DIR}/maya/MTypes.h" _maya_version_line REGEX "#define MAYA_API_VERSION")
    string(REGEX MATCH "[0-9][0-9][0-9][0-9]" Maya_VERSION "${_maya_version_line}")
endif()

set(_maya_libraries Foundation OpenMaya OpenMayaAnim OpenMayaUI OpenMayaRender)
foreach(library ${_maya_libraries})
    find_library(Maya_${library}_LIBRARY ${library} PATHS "${_maya_lib_dir}" NO_DEFAULT_PATH)
endforeach()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Maya
    REQUIRED_VARS Maya_INCLUDE_DIR Maya_Foundation_LIBRARY Maya_OpenMaya_LIBRARY Maya_OpenMayaAnim_LIBRARY
                  Maya_OpenMayaUI_LIBRARY Maya_OpenMayaRender_LIBRARY
    VERSION_VAR Maya_VERSION)

if(Maya_FOUND)
    foreach(library ${_maya_libraries})
        if(NOT TARGET Maya::${library})
            add_library(Maya::${library} UNKNOWN IMPORTED)
            set_target_properties(Maya::${library} PROPERTIES
                IMPORTED_LOCATION "${Maya_${library}_LIBRARY}"
                INTERFACE_INCLUDE_DIRECTORIES "${Maya_INCLUDE_DIR}")
            if(WIN32)
                set_property(TARGET Maya::${library} APPEND PROPERTY
                    INTERFACE_COMPILE_DEFINITIONS NT_PLUGIN REQUIRE_IOSTREAM _BOOL)
            elseif(APPLE)
                set_property(TARGET Maya::${library} APPEND PROPERTY
                    INTERFACE_COMPILE_DEFINITIONS OSMac_ MAC_PLUGIN REQUIRE_IOSTREAM _BOOL)
            else()
                set_property(TARGET Maya::${library} APPEND PROPERTY
                    INTERFACE_COMPILE_DEFINITIONS LINUX _BOOL REQUIRE_IOSTREAM)
            endif()
        endif()
    endforeach()

    # Maya 2022 ships Qt 5.15 with its CMake packages under lib/cmake; the
    # headers come zipped in the devkit and are unpacked to include/qt.
    set(Qt5_DIR "${_maya_lib_dir}/cmake/Qt5" CACHE PATH "Maya's Qt 5" FORCE)
    find_package(Qt5 5.15 REQUIRED COMPONENTS Core Gui Widgets Network
                 PATHS "${_maya_lib_dir}/cmake" NO_DEFAULT_PATH)
endif()
