# Installs the build tree BUILD_DIR to WORK_DIR/prefix, then configures, builds and runs the
# consumer project PROJECT_DIR against that prefix (cmake -P).
cmake_minimum_required(VERSION 3.25)

foreach(_required BUILD_DIR WORK_DIR PROJECT_DIR GENERATOR CXX_COMPILER EXPECTED_VERSION)
    if(NOT DEFINED ${_required})
        message(FATAL_ERROR "InstallAndConsume.cmake needs -D${_required}=...")
    endif()
endforeach()

set(_prefix ${WORK_DIR}/prefix)
set(_build ${WORK_DIR}/build)
file(REMOVE_RECURSE ${WORK_DIR})

# Runs one step and stops with its output when it fails.
function(run_step name)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE _result OUTPUT_VARIABLE _output
                    ERROR_VARIABLE _output)
    if(NOT _result EQUAL 0)
        message(FATAL_ERROR "${name} failed (${_result}):\n${_output}")
    endif()
endfunction()

run_step(install ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${_prefix})

set(_configure ${CMAKE_COMMAND} -S ${PROJECT_DIR} -B ${_build} -G ${GENERATOR}
               -DCMAKE_PREFIX_PATH=${_prefix} -DCMAKE_CXX_COMPILER=${CXX_COMPILER}
               -DQLN_EXPECTED_VERSION=${EXPECTED_VERSION})
if(MAKE_PROGRAM)
    list(APPEND _configure -DCMAKE_MAKE_PROGRAM=${MAKE_PROGRAM})
endif()
if(BUILD_TYPE)
    list(APPEND _configure -DCMAKE_BUILD_TYPE=${BUILD_TYPE})
endif()
run_step(configure ${_configure})
run_step(build ${CMAKE_COMMAND} --build ${_build})
run_step(run ${_build}/quillon_consumer)

# Nothing of the build tree may be needed: the headers and libraries come from the prefix.
file(STRINGS ${_build}/CMakeCache.txt _quillon_dir REGEX "^Quillon_DIR:")
if(NOT _quillon_dir MATCHES "${_prefix}")
    message(FATAL_ERROR "the consumer found Quillon outside the prefix: ${_quillon_dir}")
endif()
message(STATUS "consumer built and ran against ${_prefix}")
