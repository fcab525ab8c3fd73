# The images of the toolbar and of the windows: taken from the installed Breeze icon theme into the program, each under its button's key;
# Program is that of the windows.

include_guard(GLOBAL)

find_path(QUOREL_BREEZE_ICONS actions/22/document-new.svg
    PATHS /usr/share/icons/breeze
    NO_DEFAULT_PATH)
if(NOT QUOREL_BREEZE_ICONS)
    message(FATAL_ERROR "The Breeze icon theme is missing (Debian: breeze-icon-theme)")
endif()

# add_toolbar_icons(TARGET): compiles the images in, as :/toolbar/KEY.svg
function(add_toolbar_icons target)
    set(images
        New=document-new
        Open=document-open
        Save=document-save
        Cut=edit-cut
        Copy=edit-copy
        Paste=edit-paste
        Print=document-print
        PrintGraph=office-chart-line
        Sum=gnumeric-autosum
        Plan=view-pim-notes
        StatPar=view-statistics
        Help=help-contents
        ICH=viewpdf
        Libro=documentation
        Exit=window-close)
    set(files)
    foreach(image IN LISTS images)
        string(REPLACE "=" ";" pair ${image})
        list(GET pair 0 key)
        list(GET pair 1 name)
        set(file ${QUOREL_BREEZE_ICONS}/actions/22/${name}.svg)
        set_source_files_properties(${file} PROPERTIES QT_RESOURCE_ALIAS ${key}.svg)
        list(APPEND files ${file})
    endforeach()
    set(program ${QUOREL_BREEZE_ICONS}/categories/32/applications-science.svg)
    set_source_files_properties(${program} PROPERTIES QT_RESOURCE_ALIAS Program.svg)
    list(APPEND files ${program})
    qt_add_resources(${target} toolbar PREFIX /toolbar FILES ${files})
endfunction()
