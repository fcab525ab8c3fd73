# The images of the toolbar and of the windows: taken from the installed Breeze icon theme into the program, each under its button's
# key, but for those that are drawn here; Program is that of the windows.

include_guard(GLOBAL)

find_path(QUOREL_BREEZE_ICONS actions/22/document-new.svg
    PATHS /usr/share/icons/breeze
    NO_DEFAULT_PATH)
if(NOT QUOREL_BREEZE_ICONS)
    message(FATAL_ERROR "The Breeze icon theme is missing (Debian: breeze-icon-theme)")
endif()

# What a button's picture is drawn in, and that of a button that is grey: kDisabledColor of Furnishings.h.
set(QUOREL_IMAGE_COLOUR "#232629")
set(QUOREL_GREY_IMAGE_COLOUR "#757159")

# add_toolbar_icons(TARGET): compiles the images in, as :/toolbar/KEY.svg and :/toolbar/KEY-grey.svg, all in one colour each
function(add_toolbar_icons target)
    set(breeze ${QUOREL_BREEZE_ICONS}/actions/22)
    set(own ${CMAKE_CURRENT_SOURCE_DIR}/framework/window/images)
    set(images
        New=${breeze}/document-new
        Open=${breeze}/document-open
        Save=${breeze}/document-save
        Cut=${breeze}/edit-cut
        Copy=${breeze}/edit-copy
        Paste=${breeze}/edit-paste
        Print=${breeze}/document-print
        PrintGraph=${own}/PrintGraph
        Sum=${breeze}/gnumeric-autosum
        Plan=${breeze}/view-pim-notes
        StatPar=${own}/StatPar
        Help=${breeze}/help-contents
        ICH=${breeze}/viewpdf
        Libro=${breeze}/documentation
        Exit=${own}/Exit)
    set(files)
    foreach(image IN LISTS images)
        string(REPLACE "=" ";" pair ${image})
        list(GET pair 0 key)
        list(GET pair 1 source)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source}.svg)
        file(READ ${source}.svg drawing)
        foreach(variant IN ITEMS "=${QUOREL_IMAGE_COLOUR}" "-grey=${QUOREL_GREY_IMAGE_COLOUR}")
            string(REPLACE "=" ";" pair "${variant}")
            list(GET pair 0 ending)
            list(GET pair 1 colour)
            string(REGEX REPLACE "#[0-9a-fA-F][0-9a-fA-F][0-9a-fA-F][0-9a-fA-F][0-9a-fA-F][0-9a-fA-F]" "${colour}" coloured
                "${drawing}")
            set(file ${CMAKE_CURRENT_BINARY_DIR}/toolbar/${key}${ending}.svg)
            file(CONFIGURE OUTPUT ${file} CONTENT "${coloured}" @ONLY)
            set_source_files_properties(${file} PROPERTIES QT_RESOURCE_ALIAS ${key}${ending}.svg)
            list(APPEND files ${file})
        endforeach()
    endforeach()
    set(program ${QUOREL_BREEZE_ICONS}/categories/32/applications-science.svg)
    set_source_files_properties(${program} PROPERTIES QT_RESOURCE_ALIAS Program.svg)
    list(APPEND files ${program})
    qt_add_resources(${target} toolbar PREFIX /toolbar FILES ${files})
endfunction()
