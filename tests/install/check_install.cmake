# Installs the build tree BUILD under WORK, builds the CONSUMER project against it and runs it.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "failed with ${result}: ${ARGN}")
    endif()
endfunction()

# A file that is no longer installed must not be found from an earlier run.
file(REMOVE_RECURSE "${WORK}/prefix")
run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${WORK}/prefix")
run("${CMAKE_COMMAND}" -S "${CONSUMER}" -B "${WORK}/consumer" -G Ninja -DCMAKE_BUILD_TYPE=Debug
    "-DCMAKE_PREFIX_PATH=${WORK}/prefix" "-DCMAKE_CXX_COMPILER=${COMPILER}")
run("${CMAKE_COMMAND}" --build "${WORK}/consumer")
run("${WORK}/consumer/consumer")
