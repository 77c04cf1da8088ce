# Runs qln once and checks its exit code and output (cmake -P).
#   -DQLN=<program> -DARGS=<arguments as a list> -DEXIT=<expected exit code>
#   [-DINPUT=<file for standard input>]
#   [-DSTDOUT=<regular expression>] [-DSTDOUT_FILE=<file with the exact expected output>]
#   [-DSTDERR=<regular expression>]   without it standard error must be empty
cmake_minimum_required(VERSION 3.25)

foreach(_required QLN EXIT)
    if(NOT DEFINED ${_required})
        message(FATAL_ERROR "RunQln.cmake needs -D${_required}=...")
    endif()
endforeach()

set(_input)
if(DEFINED INPUT)
    set(_input INPUT_FILE ${INPUT})
endif()
execute_process(COMMAND ${QLN} ${ARGS} ${_input}
                RESULT_VARIABLE _exit OUTPUT_VARIABLE _out ERROR_VARIABLE _err)

set(_problems)
if(NOT "${_exit}" STREQUAL "${EXIT}")
    list(APPEND _problems "exit code ${_exit}, expected ${EXIT}")
endif()
if(DEFINED STDOUT AND NOT _out MATCHES "${STDOUT}")
    list(APPEND _problems "standard output does not match the expression ${STDOUT}")
endif()
if(DEFINED STDOUT_FILE)
    file(READ ${STDOUT_FILE} _expected)
    if(NOT _out STREQUAL _expected)
        list(APPEND _problems "standard output differs from ${STDOUT_FILE}")
    endif()
endif()
if(DEFINED STDERR)
    if(NOT _err MATCHES "${STDERR}")
        list(APPEND _problems "standard error does not match the expression ${STDERR}")
    endif()
elseif(NOT _err STREQUAL "")
    list(APPEND _problems "standard error is not empty")
endif()

if(_problems)
    list(JOIN _problems "\n  " _list)
    list(JOIN ARGS " " _command)
    message(FATAL_ERROR "qln ${_command}\n  ${_list}\n--- standard output\n${_out}"
                        "--- standard error\n${_err}---")
endif()
