# The plug-in's own images, listed when its resources are built: the resource
# path of every image file the .qrc files hold, as a C++ function the icon
# picker calls, so that it offers them apart from the host's. A .qrc edited
# later configures the build anew.
function(orvane_plugin_icon_list output)
    set(entries "")
    foreach(qrc ${ARGN})
        set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${qrc})
        file(READ ${qrc} content)
        string(REPLACE ";" "" content "${content}")
        string(REPLACE "<qresource" ";<qresource" blocks "${content}")
        foreach(block ${blocks})
            set(prefix "")
            if(block MATCHES "^<qresource[^>]*prefix=\"([^\"]*)\"")
                set(prefix "${CMAKE_MATCH_1}")
            endif()
            string(REGEX MATCHALL "<file[^>]*>[^<]*</file>" files "${block}")
            foreach(file ${files})
                string(REGEX REPLACE "^<file[^>]*>[ \t\r\n]*([^< \t\r\n]*)[ \t\r\n]*</file>$" "\\1" source "${file}")
                set(name "${source}")
                if(file MATCHES "^<file[^>]*alias=\"([^\"]*)\"")
                    set(name "${CMAKE_MATCH_1}")
                endif()
                string(TOLOWER "${source}" lower)
                if(lower MATCHES "\\.(png|jpg|jpeg|svg|ico|gif|bmp|webp)$")
                    string(REGEX REPLACE "/+" "/" path ":/${prefix}/${name}")
                    string(APPEND entries "        QStringLiteral(\"${path}\"),\n")
                endif()
            endforeach()
        endforeach()
    endforeach()
    file(CONFIGURE OUTPUT ${output} CONTENT
"// Generated from resources/*.qrc when the build is configured.
#include <QStringList>

namespace PieMenu {

QStringList pluginResourceImages()
{
    return {
@entries@    };
}

} // namespace PieMenu
" @ONLY)
endfunction()
