# What the build for the browser and for node needs besides; the presets web and web-fast use it.

option(KVT_STACK_SWITCHING "The browser switches stacks itself: no Asyncify" OFF)

# kvt_headers_alone(VARIABLE FOLDER...) sets a variable to a folder that has these header folders of this machine alone:
# what lies beside them is of another platform.
function(kvt_headers_alone variable)
    set(headers ${CMAKE_BINARY_DIR}/headers)
    file(MAKE_DIRECTORY ${headers})
    foreach(folder IN LISTS ARGN)
        get_filename_component(name ${folder} NAME)
        file(CREATE_LINK ${folder} ${headers}/${name} SYMBOLIC)
    endforeach()
    set(${variable} ${headers} PARENT_SCOPE)
endfunction()

# kvt_for_node(TARGET) makes a program of the console run under node, on the files of this machine.
function(kvt_for_node target)
    target_link_options(${target} PRIVATE -sENVIRONMENT=node -sNODERAWFS=1 -sWASM_ASYNC_COMPILATION=0 -sALLOW_MEMORY_GROWTH=1
                        -sTOTAL_STACK=4MB -sEXIT_RUNTIME=1)
endfunction()

# Debian's emscripten needs modules of Debian's node, which a node from elsewhere does not look for.
set_property(GLOBAL PROPERTY RULE_LAUNCH_LINK "${CMAKE_COMMAND} -E env NODE_PATH=/usr/share/nodejs")

# kvt_for_page(TARGET SOURCE...) makes a program that runs in a browser page, as web/js/program.js loads it.
set(page_options -sENVIRONMENT=web -sFILESYSTEM=0 -sALLOW_MEMORY_GROWTH=1 -sTOTAL_STACK=1MB -sMODULARIZE=1 -sEXPORT_ES6=1
                 -sUSE_ES6_IMPORT_META=0 -sEXPORT_NAME=createProgram -sINVOKE_RUN=0 -sDYNAMIC_EXECUTION=0
                 -sEXPORTED_FUNCTIONS=_main,_malloc)
function(kvt_for_page target)
    set(rooms web shell system transfer draw ${KVT_FILES_AND_BELOW})
    add_executable(${target} ${ARGN})
    kvt_link(${target} ${rooms})
    target_link_options(${target} PRIVATE ${page_options})
    if(KVT_STACK_SWITCHING)
        set_target_properties(${target} PROPERTIES OUTPUT_NAME kvt_web_fast)
        return()
    endif()
    set_target_properties(${target} PROPERTIES OUTPUT_NAME kvt_web)
    # Asyncify makes it larger. What waits for users needs no inlining; the check pass does.
    foreach(room web shell transfer editor files platform draw program)
        target_compile_options(kvt_${room} PRIVATE "SHELL:-mllvm -inline-threshold=5")
    endforeach()
    kvt_asyncify(${target})
endfunction()

# kvt_asyncify(TARGET) makes a program able to wait in every browser, as web/js/rewinding.js has it. Only what can be on the
# stack in a wait takes part: tools/asyncify finds that, and must be able to tell the addresses of functions and data from
# other numbers.
function(kvt_asyncify target)
    set(filled 40000)
    set(filler ${CMAKE_BINARY_DIR}/filler.o)
    set(tool ${CMAKE_SOURCE_DIR}/tools/asyncify)
    add_custom_command(OUTPUT ${filler} DEPENDS ${tool}/filler.S
        COMMAND ${CMAKE_CXX_COMPILER} -DKVT_FILLED=${filled} -c ${tool}/filler.S -o ${filler})
    add_custom_target(filler DEPENDS ${filler})
    add_dependencies(${target} filler)
    target_link_options(${target} PRIVATE ${filler} -sGLOBAL_BASE=262144
                        -sEXPORTED_FUNCTIONS=_main,_malloc,_kvt_filler,_snprintf,___dynamic_cast)
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS
                 ${filler} ${tool}/asyncify.mjs ${tool}/module_text.mjs ${tool}/transform.mjs ${tool}/waits.mjs)
    set(wasm $<TARGET_FILE_DIR:${target}>/kvt_web.wasm)
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND node ${tool}/asyncify.mjs ${wasm} ${wasm} kvt_next ${filled} snprintf __dynamic_cast)
endfunction()
