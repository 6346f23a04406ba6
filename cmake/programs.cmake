# The gallery, with the forms it loads copied to the folder "forms" beside it.

file(GLOB_RECURSE gallerySources CONFIGURE_DEPENDS
    "${PROJECT_SOURCE_DIR}/gallery/*.cpp" "${PROJECT_SOURCE_DIR}/gallery/*.rc")
if(ZOR_BUILD_GALLERY AND gallerySources)
    add_executable(gallery WIN32 ${gallerySources})
    zor_set_warnings(gallery)
    target_link_libraries(gallery PRIVATE zor::zor zor::manifest)
    if(MINGW)
        target_link_options(gallery PRIVATE -municode)
    endif()
    set_target_properties(gallery PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/gallery)

    file(GLOB galleryForms CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/gallery/forms/*.dfm")
    set(copiedForms)
    foreach(form IN LISTS galleryForms)
        get_filename_component(name ${form} NAME)
        set(copy ${PROJECT_BINARY_DIR}/gallery/forms/${name})
        add_custom_command(OUTPUT ${copy} DEPENDS ${form}
            COMMAND ${CMAKE_COMMAND} -E copy ${form} ${copy})
        list(APPEND copiedForms ${copy})
    endforeach()
    add_custom_target(gallery_forms DEPENDS ${copiedForms})
    add_dependencies(gallery gallery_forms)
endif()
