# The gallery, with the forms it loads and the scripts it plays in folders beside it.

file(GLOB_RECURSE gallerySources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/gallery/*.cpp")
if(ZOR_BUILD_GALLERY)
    # Tests drive its parts, too.
    set(galleryMain ${PROJECT_SOURCE_DIR}/gallery/main.cpp)
    list(REMOVE_ITEM gallerySources ${galleryMain})
    add_library(gallery_parts OBJECT ${gallerySources})
    zor_set_warnings(gallery_parts)
    target_link_libraries(gallery_parts PUBLIC zor::zor sampleorders)
    add_executable(gallery WIN32 ${galleryMain})
    zor_set_warnings(gallery)
    target_link_libraries(gallery PRIVATE gallery_parts zor::manifest)
    if(MINGW)
        target_link_options(gallery PRIVATE -municode)
    endif()
    set_target_properties(gallery PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/gallery)

    set(copies)
    foreach(folder IN ITEMS forms scripts data)
        set(target ${PROJECT_BINARY_DIR}/gallery/${folder})
        file(GLOB names CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}/gallery/${folder}"
            "${PROJECT_SOURCE_DIR}/gallery/${folder}/*.*")
        # The gallery shows what it finds, so what is gone from the sources must not stay behind.
        file(GLOB left RELATIVE "${target}" "${target}/*")
        list(REMOVE_ITEM left ${names})
        foreach(name IN LISTS left)
            file(REMOVE "${target}/${name}")
        endforeach()
        foreach(name IN LISTS names)
            set(source ${PROJECT_SOURCE_DIR}/gallery/${folder}/${name})
            add_custom_command(OUTPUT ${target}/${name} DEPENDS ${source} VERBATIM
                COMMAND ${CMAKE_COMMAND} -E copy ${source} ${target}/${name})
            list(APPEND copies ${target}/${name})
        endforeach()
    endforeach()
    add_custom_target(gallery_files DEPENDS ${copies})
    add_dependencies(gallery gallery_files)
endif()
