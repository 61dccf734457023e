#include "Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <memory>
#include <vector>

namespace {

std::vector<std::unique_ptr<QTranslator>>& Installed()
{
    static std::vector<std::unique_ptr<QTranslator>> translators;
    return translators;
}

bool Install(const QLocale& language, const QString& name, const QString& folder)
{
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(language, name, QStringLiteral("_"), folder) ||
        !QCoreApplication::installTranslator(translator.get()))
        return false;
    Installed().push_back(std::move(translator));
    return true;
}

} // namespace

QString InstallTranslators(const QStringList& languages)
{
    RemoveTranslators();
    for (const QString& name : languages) {
        // Brindle's texts are written in English; a user who puts English
        // before German wants English, not the next language on the list.
        if (name.startsWith(QLatin1String("en")) || name == QLatin1String("C"))
            return {};
        const QLocale language(name);
        if (Install(language, QStringLiteral("brindle"), QStringLiteral(":/i18n"))) {
            // Qt's own texts are a bonus: without them the buttons stay English.
            Install(language, QStringLiteral("qtbase"),
                    QLibraryInfo::path(QLibraryInfo::TranslationsPath));
            return language.name().section(QLatin1Char('_'), 0, 0);
        }
    }
    return {};
}

void RemoveTranslators()
{
    for (const auto& translator : Installed())
        QCoreApplication::removeTranslator(translator.get());
    Installed().clear();
}
