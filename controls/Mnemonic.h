#pragma once

#include <QString>

// A menu title with its first letter as the Alt key mnemonic ("Course" opens
// with Alt+C). The texts stay as the string table has them; only the marker
// is added, so translations get their mnemonics too. An "&" of the text
// itself is kept as a literal.
QString WithMnemonic(const QString& title);
