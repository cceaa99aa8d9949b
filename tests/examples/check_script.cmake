# Fails when what SCRIPT writes is not DECK, byte for byte.
execute_process(COMMAND ${PYTHON} ${SCRIPT} OUTPUT_FILE ${WRITTEN} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${WRITTEN} ${DECK} COMMAND_ERROR_IS_FATAL ANY)
