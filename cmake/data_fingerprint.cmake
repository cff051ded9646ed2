# Writes the SHA-256 of two files one after the other as a string of C.
#   cmake -D FIRST=... -D SECOND=... -D JOINED=scratch -D OUTPUT=... -P data_fingerprint.cmake
execute_process(COMMAND ${CMAKE_COMMAND} -E cat ${FIRST} ${SECOND} OUTPUT_FILE ${JOINED}
  COMMAND_ERROR_IS_FATAL ANY)
file(SHA256 ${JOINED} digest)
file(REMOVE ${JOINED})
file(WRITE ${OUTPUT} "\"${digest}\"\n")
