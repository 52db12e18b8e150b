#include "qthost/qthost.h"
#include "voxi2/kernel/translation.h"

#include <QApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QPalette>
#include <QString>

#include <gtest/gtest.h>
#include <string>

namespace VOXI {
namespace {

// One test: a process has one host.
TEST(LanguageTest, AnApplicationOfTheHostsOwnSpeaksTheUsersLanguageAndIsReadable)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LANGUAGE", "x-nobody:de_AT:fr");
    qputenv("LC_ALL", "de_AT.UTF-8");
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    int count = 1;
    const auto undo = [] { return QCoreApplication::translate("QWidgetTextControl", "&Undo"); };
    {
        const QtHost host(count, arguments);
        EXPECT_EQ(language(), "de");
        const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
        const bool isThere = QFile::exists(folder + QLatin1String("/qtbase_de.qm"));
        EXPECT_EQ(undo() != QLatin1String("&Undo"), isThere);
        setTranslation([](const std::string& english) -> std::wstring {
            return english == "&Undo" ? L"&Annuler" : L"";
        });
        EXPECT_EQ(undo(), QLatin1String("&Annuler"));

        // Themes may forget the hints in empty fields.
        for (const auto& [base, text] : {std::pair(Qt::black, Qt::white), {Qt::white, Qt::black}}) {
            QPalette palette;
            palette.setColor(QPalette::Base, base);
            palette.setColor(QPalette::Text, text);
            palette.setColor(QPalette::PlaceholderText, base);
            QApplication::setPalette(palette);
            const QColor hint = QApplication::palette().color(QPalette::PlaceholderText);
            EXPECT_EQ(hint.rgb(), QColor(text).rgb());
            EXPECT_LT(hint.alpha(), 255);
        }
    }
    EXPECT_EQ(undo(), QLatin1String("&Undo"));
}

} // namespace
} // namespace VOXI
