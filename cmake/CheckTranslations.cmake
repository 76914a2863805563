# Fails when a tr() text of the sources has no finished entry in a translation kept in the repo.
# Runs lupdate over the sources into a copy of the .ts: a text the .ts lacks comes in unfinished,
# and so does an entry that was never translated.
#   cmake -DLUPDATE=... -DSOURCE_DIR=... -DWORK_DIR=... -DTS=korvane_en.ts -P CheckTranslations.cmake
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
set(copy ${WORK_DIR}/${TS})
configure_file(${SOURCE_DIR}/resources/translations/${TS} ${copy} COPYONLY)
execute_process(COMMAND ${LUPDATE} -silent -no-obsolete -locations none -source-language ru
                        -target-language en Model Loaders Savers Settings Calc Views apps -ts ${copy}
                WORKING_DIRECTORY ${SOURCE_DIR} RESULT_VARIABLE result ERROR_QUIET)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "lupdate failed: ${result}")
endif()
file(READ ${copy} updated)
string(REGEX MATCHALL "<message>" messages "${updated}")
list(LENGTH messages messageCount)
if(messageCount EQUAL 0)
    message(FATAL_ERROR "lupdate found no tr() text in ${SOURCE_DIR}")
endif()
string(REGEX MATCHALL "<source>[^<]*</source>[ \n]*<translation type=\"unfinished\"" unfinished "${updated}")
list(LENGTH unfinished unfinishedCount)
if(unfinishedCount GREATER 0)
    string(REPLACE ";" "\n" list "${unfinished}")
    message(FATAL_ERROR "${unfinishedCount} of ${messageCount} texts have no English translation "
                        "(run scripts/update-translations.sh and translate them):\n${list}")
endif()
message(STATUS "${messageCount} texts, all translated in ${TS}")
