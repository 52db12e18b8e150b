#include "support/reportederrors.h"
#include "support/watchedtest.h"
#include "voxi2/kernel/translation.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace VOXI {
namespace {

class TranslationTest : public WatchedTest
{
    void TearDown() override
    {
        setTranslation({});
        setLanguage("en");
    }
};

TEST_F(TranslationTest, KnowsItsLanguagesByTheNamesOfLocales)
{
    for (const char* name : {"de", "DE", "de_AT", "de-DE.UTF-8", "de@euro"}) {
        EXPECT_TRUE(setLanguage(name)) << name;
        EXPECT_EQ(translated("&Yes"), L"&Ja") << name;
        EXPECT_EQ(language(), "de");
        EXPECT_TRUE(setLanguage("en_GB"));
        EXPECT_EQ(translationOf("&Yes"), L"");
    }
    for (const char* name : {"", "C", "den", "d", "fr_FR"}) {
        setLanguage("de");
        EXPECT_FALSE(setLanguage(name)) << name;
        EXPECT_EQ(translated("&Yes"), L"&Yes");
    }
}

TEST_F(TranslationTest, AsksTheProgramFirstAndFillsInWhatItLikes)
{
    TROV::ReportedErrors errors;
    setLanguage("de");
    setTranslation([](const std::string& english) -> std::wstring {
        if (english == "&No")
            throw std::runtime_error("no words");
        return english == "&Yes"                                ? L"&Oui"
               : english == "A number from %1 to %2 is wanted." ? L"%2 %9 %1 % %"
                                                                : L"";
    });
    EXPECT_EQ(translated("&Yes"), L"&Oui");
    EXPECT_EQ(translated("&Save"), L"&Speichern");
    EXPECT_EQ(translated("&No"), L"&Nein");
    EXPECT_EQ(errors.take(), std::vector<std::string>{"no words"});
    EXPECT_EQ(programTranslationOf("&Undo"), L"");
    // What stands in an argument stands for nothing.
    EXPECT_EQ(translated("A number from %1 to %2 is wanted.", {L"%2", L"9"}), L"9 %9 %2 % %");
}

} // namespace
} // namespace VOXI
