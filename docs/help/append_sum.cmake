# Writes HELP: the bytes of RESOURCE, then their SHA-256 as 64 letters.
file(SHA256 ${RESOURCE} sum)
file(WRITE ${RESOURCE}.sum ${sum})
execute_process(COMMAND ${CMAKE_COMMAND} -E cat ${RESOURCE} ${RESOURCE}.sum
    OUTPUT_FILE ${HELP} COMMAND_ERROR_IS_FATAL ANY)
