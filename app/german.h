// German whatever the desktop's language says: Qt's own texts, calendars and numbers.
#pragma once

class QCoreApplication;

/// Sets the German locale and installs Qt's German translation, from the folder "translations"
/// beside the program or from Qt's own. False when no translation was found (the window still
/// works, its standard dialogs are English).
bool InstallGerman(QCoreApplication& application);
