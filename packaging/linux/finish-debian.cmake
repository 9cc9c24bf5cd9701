# Called when CPack creates the Debian package.
execute_process(COMMAND ${CMAKE_CURRENT_LIST_DIR}/finish-debian ${CPACK_TEMPORARY_INSTALL_DIRECTORY}
    COMMAND_ERROR_IS_FATAL ANY)
