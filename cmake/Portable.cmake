# The portable folder: the program, Qt's German translation and the manual, side by side with the
# data. Installed as component "portable"; see scripts/build-portable.

add_custom_target(portable DEPENDS parzello)
install(TARGETS parzello RUNTIME DESTINATION . COMPONENT portable)

get_target_property(qmake Qt6::qmake IMPORTED_LOCATION)
execute_process(COMMAND ${qmake} -query QT_INSTALL_TRANSLATIONS
    OUTPUT_VARIABLE qt_translations OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
# The faces of the page's font lie inside the program; their licence goes with it.
install(FILES /usr/share/doc/fonts-liberation/copyright DESTINATION lizenzen
    RENAME fonts-liberation.txt COMPONENT portable)
install(FILES ${qt_translations}/qtbase_de.qm DESTINATION translations COMPONENT portable)
