# What the build for the browser and for node needs besides; the presets web and web-fast use it.

option(KVT_STACK_SWITCHING "The browser switches stacks itself: no Asyncify" OFF)

# kvt_web_headers(TARGET FOLDER...) gives a target header folders of this machine, without the rest of theirs, which is
# of another platform.
function(kvt_web_headers target)
    set(headers ${CMAKE_BINARY_DIR}/headers)
    file(MAKE_DIRECTORY ${headers})
    foreach(folder IN LISTS ARGN)
        get_filename_component(name ${folder} NAME)
        file(CREATE_LINK ${folder} ${headers}/${name} SYMBOLIC)
    endforeach()
    target_include_directories(${target} SYSTEM PUBLIC ${headers})
endfunction()

# kvt_for_node(TARGET) makes a program of the console run under node, on the files of this machine.
function(kvt_for_node target)
    target_link_options(${target} PRIVATE -sENVIRONMENT=node -sNODERAWFS=1 -sWASM_ASYNC_COMPILATION=0 -sALLOW_MEMORY_GROWTH=1
                        -sTOTAL_STACK=4MB -sEXIT_RUNTIME=1)
endfunction()

# Debian's emscripten needs modules of Debian's node, which a node from elsewhere does not look for.
set_property(GLOBAL PROPERTY RULE_LAUNCH_LINK "${CMAKE_COMMAND} -E env NODE_PATH=/usr/share/nodejs")
