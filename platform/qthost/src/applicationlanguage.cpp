#include "applicationlanguage.h"

#include "voxi2/kernel/translation.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QString>
#include <QTranslator>

#include <string>

namespace VOXI {

class ApplicationLanguage::ProgramsTranslator final : public QTranslator
{
public:
    bool isEmpty() const override { return false; }

    QString translate(const char*, const char* source, const char*, int) const override
    {
        const std::wstring text = programTranslationOf(source);
        return text.empty() ? QString() : QString::fromStdWString(text);
    }
};

ApplicationLanguage::ApplicationLanguage()
{
    // The first of the languages that the user reads and somebody here knows. Texts are English by
    // themselves; Qt has a translation into that, too, for its plurals.
    for (const QString& name : QLocale().uiLanguages()) {
        const QString language = QString(name).replace(u'-', u'_');
        if (use(language))
            break;
    }
    install(std::make_unique<ProgramsTranslator>());
}

ApplicationLanguage::~ApplicationLanguage()
{
    // The application takes them out; so late nobody need be told of another language.
    m_translators.clear();
}

bool ApplicationLanguage::use(const QString& language)
{
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    bool isKnown = setLanguage(language.toStdString()) || language == u"C";
    for (const QLatin1String catalog : {QLatin1String("qtbase_"), QLatin1String("qtwebengine_")}) {
        auto translator = std::make_unique<QTranslator>();
        if (!translator->load(catalog + language, folder))
            continue;
        isKnown = true;
        install(std::move(translator));
    }
    return isKnown;
}

void ApplicationLanguage::install(std::unique_ptr<QTranslator> translator)
{
    // Asked before those that were installed earlier.
    QCoreApplication::installTranslator(translator.get());
    m_translators.push_back(std::move(translator));
}

} // namespace VOXI
