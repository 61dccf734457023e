#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>

// Installs the translators for the user's language: Brindle's own texts from
// the program's resources and Qt's texts (standard buttons, edit-field menus)
// from Qt's translations folder. The languages are tried in the user's order
// (LANGUAGE, then LC_ALL / LC_MESSAGES / LANG); English, the language the
// texts are written in, ends the search. Returns the language whose Brindle
// texts were installed ("de"), or an empty string for English.
QString InstallTranslators(const QStringList& languages = QLocale().uiLanguages());

// Removes what InstallTranslators installed (tests switch languages).
void RemoveTranslators();
