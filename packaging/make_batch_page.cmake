# Makes the manual page of the batch program from what it says of itself:
# cmake -D PROGRAM=... -D VERSION=... -D PAGE=... -D OUTPUT=... -P make_batch_page.cmake
execute_process(COMMAND ${PROGRAM} help OUTPUT_VARIABLE BATCH_HELP COMMAND_ERROR_IS_FATAL ANY)
# Its first line is the name, which the page has already.
string(FIND "${BATCH_HELP}" "\n" end)
string(SUBSTRING "${BATCH_HELP}" ${end} -1 BATCH_HELP)
string(STRIP "${BATCH_HELP}" BATCH_HELP)
string(REPLACE "\\" "\\e" BATCH_HELP "${BATCH_HELP}")
string(REPLACE "-" "\\-" BATCH_HELP "${BATCH_HELP}")
string(REPLACE "\n." "\n\\&." BATCH_HELP "${BATCH_HELP}")
string(REPLACE "\n'" "\n\\&'" BATCH_HELP "${BATCH_HELP}")
set(HALVORNE_VERSION ${VERSION})
configure_file(${PAGE} ${OUTPUT} @ONLY)
