#include "dialogsupport.h"
#include "voxi/vxbridge.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxmessage2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/translation.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>

#include <memory>
#include <optional>

namespace VOXI {
namespace {

using A = MessageAnswer;

class Message : public DialogTest
{
protected:
    /// The message on the screen; null for none.
    static QWidget* shown()
    {
        for (VXAbstractWindow2* each : VXAbstractWindow2::windows()) {
            if (dynamic_cast<VXDialog2*>(each) && each->isVisible())
                return qt(*each);
        }
        return nullptr;
    }
    static QString labels()
    {
        QStringList labels;
        for (QPushButton* each : shown()->findChildren<QPushButton*>())
            labels.append(each->text() + QLatin1String(each->isDefault() ? "*" : ""));
        return labels.join(u' ');
    }
    static void press(Qt::Key key)
    {
        ASSERT_NE(shown(), nullptr);
        QTest::keyClick(shown()->focusWidget(), key);
    }
    static void click(const char* label)
    {
        for (QPushButton* each : shown()->findChildren<QPushButton*>()) {
            if (each->text() == QLatin1String(label))
                return QTest::mouseClick(each, Qt::LeftButton);
        }
        ADD_FAILURE() << "no button " << label;
    }
};

TEST_F(Message, showsItsTextsAndAnswersInOneOrder)
{
    soon([&] {
        EXPECT_EQ(labels(), QStringLiteral("&Save &Discard Cancel*"));
        EXPECT_EQ(shown()->windowTitle(), QStringLiteral("Question"));
        EXPECT_EQ(shown()->parentWidget(), qt(*m_window));
        const auto* text = shown()->findChild<QLabel*>(QStringLiteral("text"));
        EXPECT_EQ(text->text(), QStringLiteral("<b>€?"));
        EXPECT_EQ(text->textFormat(), Qt::PlainText);
        click("&Discard");
    });
    EXPECT_EQ(VXMessage2::ask(m_window, L"<b>\u20ac?", A::Cancel | A::Discard | A::Save, A::Cancel),
              A::Discard);
    soon([&] {
        EXPECT_EQ(labels(), QStringLiteral("&OK*"));
        EXPECT_EQ(shown()->findChild<QLabel*>(QStringLiteral("details"))->text(),
                  QStringLiteral("é"));
        EXPECT_EQ(shown()->windowTitle(), QStringLiteral("T"));
        press(Qt::Key_Return);
    });
    EXPECT_EQ((VXMessage2{.text = "", .details = "\xe9", .title = u"T", .answers = {}}.exec()),
              A::Ok);
    soon([&] { press(Qt::Key_Return); });
    VXMessage2::inform(nullptr, "told");
}

TEST_F(Message, keysAnswerIt)
{
    const auto answer = [&](VXFlags<A> answers, A escape, auto&& act) {
        soon(act);
        return VXMessage2{.text = "?", .answers = answers, .escapeAnswer = escape}.exec(m_window);
    };
    const auto byEscape = [&](VXFlags<A> answers, A escape = A::None) {
        return answer(answers, escape, [] { press(Qt::Key_Escape); });
    };
    EXPECT_EQ(byEscape(A::Yes | A::No | A::Cancel), A::Cancel);
    EXPECT_EQ(byEscape(A::Yes | A::No), A::No);
    EXPECT_EQ(byEscape(A::Retry), A::Retry);
    EXPECT_EQ(byEscape(A::Retry | A::Abort), A::Abort);
    EXPECT_EQ(byEscape(A::Yes | A::No, A::Yes), A::Yes);
    const auto stays = [] {
        press(Qt::Key_Escape);
        EXPECT_FALSE(shown()->close());
        ASSERT_NE(shown(), nullptr) << "nothing stands for Escape";
        press(Qt::Key_Tab);
        press(Qt::Key_Return);
    };
    EXPECT_EQ(answer(A::Save | A::Discard, A::None, stays), A::Discard);
}

TEST_F(Message, calledBackOnce)
{
    std::vector<A> answers;
    const auto note = [&](A answer) { answers.push_back(answer); };
    const VXMessage2 message{.text = "?", .answers = A::Yes | A::No | A::Cancel};
    message.open(m_window, note);
    EXPECT_TRUE(answers.empty());
    turn();
    click("&No");
    EXPECT_EQ(answers, std::vector<A>{A::No});
    message.open(m_window, note);
    turn();
    press(Qt::Key_Escape);
    EXPECT_EQ(answers.size(), 2u);
    EXPECT_EQ(answers.back(), A::Cancel);

    // It goes with its window, which is an answer as well.
    message.open(m_window, note);
    delete std::exchange(m_window, nullptr);
    EXPECT_TRUE(waitFor([&] { return answers.size() == 3; }));
    EXPECT_EQ(answers.back(), A::Cancel);
}

TEST_F(Message, whoseWindowGoesIsAnsweredByEscape)
{
    soon([&] { delete std::exchange(m_window, nullptr); });
    EXPECT_EQ(VXMessage2::ask(m_window, "?"), A::No);
    EXPECT_EQ(shown(), nullptr);
}

TEST_F(Message, askedFromAWorker)
{
    std::optional<A> waited;
    std::atomic<bool> calledHere{false};
    const auto* const here = TROV::Thread::getCurrentThread();
    {
        when([] { return shown() != nullptr; }, [] { click("&Retry"); });
        const Worker worker([&] {
            waited = VXMessage2::warn(m_window, "failed", A::Retry | A::Abort);
            VXMessage2{.text = "!"}.open(m_window, [&](A answer) {
                calledHere = answer == A::Ok && TROV::Thread::getCurrentThread() == here;
            });
        });
    }
    EXPECT_EQ(waited, A::Retry);
    ASSERT_TRUE(waitFor([] { return shown() != nullptr; }));
    click("&OK");
    EXPECT_TRUE(calledHere);
}

TEST_F(Message, longTextsScrollOnTheScreen)
{
    std::string words;
    for (int i = 0; i < 3000; ++i)
        words += "word ";
    std::string lines;
    for (int i = 0; i < 300; ++i)
        lines += "line\n";
    for (const std::string& text :
         {std::string(400, 'x'), "/" + std::string(300, 'p'), words, lines}) {
        SCOPED_TRACE(text.substr(0, 5));
        for (const bool asDetails : {false, true}) {
            soon([&] {
                turn();
                const QRect screen = shown()->screen()->availableGeometry();
                EXPECT_TRUE(screen.contains(shown()->frameGeometry()))
                    << shown()->width() << 'x' << shown()->height();
                const auto* label = shown()->findChild<QLabel*>(
                    asDetails ? QStringLiteral("details") : QStringLiteral("text"));
                const QSize room = shown()->findChild<QScrollArea*>()->viewport()->size();
                EXPECT_TRUE(label->width() > room.width() || label->height() > room.height());
                EXPECT_GE(label->height(), label->heightForWidth(label->width()));
                press(Qt::Key_Return);
            });
            VXMessage2{.text = asDetails ? "short" : text, .details = asDetails ? text : ""}.exec(
                m_window);
        }
    }
    soon([&] {
        EXPECT_EQ(shown()->findChild<QScrollArea*>(), nullptr);
        press(Qt::Key_Return);
    });
    VXMessage2::inform(m_window, words.substr(0, 300));
}

TEST_F(Message, speaksAsItIsTold)
{
    const VXMessage2 message{.text = "?",
                             .answers = A::Yes | A::No | A::Cancel,
                             .kind = MessageKind::Warning,
                             .labels = {{A::Yes, L"&L\u00f6schen"}, {A::Save, "unused"}}};
    const auto expect = [&](const QString& buttons, const QString& title) {
        soon([&] {
            EXPECT_EQ(labels(), buttons);
            EXPECT_EQ(shown()->windowTitle(), title);
            press(Qt::Key_Escape);
        });
        EXPECT_EQ(message.exec(m_window), A::Cancel);
    };
    setTranslation([](const std::string& english) {
        return english == "&No" ? L"&Nein" : english == "Warning" ? L"Warnung" : L"";
    });
    expect(QStringLiteral("&L\u00f6schen* &Nein Cancel"), QStringLiteral("Warnung"));
    setTranslation({});
    expect(QStringLiteral("&L\u00f6schen* &No Cancel"), QStringLiteral("Warning"));
}

TEST_F(Message, withoutABackEndIsAnsweredAtOnce)
{
    VXFactory2* const factory = VXFactory2::current();
    const StringID key = factory->getBridge()->key();
    VXFactory2::registerFactory(key, nullptr);
    EXPECT_EQ(VXMessage2::ask(nullptr, "?"), A::No);
    A answered = A::None;
    VXMessage2{.text = "?", .answers = A::Retry | A::Cancel}.open(nullptr,
                                                                  [&](A a) { answered = a; });
    EXPECT_EQ(answered, A::Cancel);
    VXFactory2::registerFactory(key, factory);
    EXPECT_EQ(VXFactory2::current(), factory);
}

TEST_F(Message, asksWhetherToAskAgainAndShowsAPicture)
{
    std::vector<bool> told;
    const VXMessage2 message{.text = "?",
                             .picture = Pixmap(4, 4, std::vector<std::uint32_t>(16, 0xff0000ff)),
                             .option = "Do not show this again",
                             .isOptionChecked = true,
                             .optionTold = [&](bool isChecked) { told.push_back(isChecked); }};
    soon([&] {
        EXPECT_EQ(shown()->findChildren<QLabel*>().size(), 2) << "the picture and the text";
        EXPECT_TRUE(shown()->findChild<QCheckBox*>()->isChecked());
        press(Qt::Key_Return);
    });
    message.exec(m_window);
    message.open(m_window, [&](A) { EXPECT_EQ(told.size(), 2U) << "before the answer"; });
    turn();
    shown()->findChild<QCheckBox*>()->click();
    press(Qt::Key_Return);
    message.open(m_window, {[](A) {}});
    delete std::exchange(m_window, nullptr);
    turn();
    EXPECT_EQ(told, (std::vector<bool>{true, false})) << "the user has not answered the last one";
}

TEST_F(Message, tellsOfErrorsAndOfTheProgram)
{
    std::string lines;
    for (int i = 0; i < 40; ++i)
        lines += "line\n";
    soon([&] {
        EXPECT_EQ(shown()->windowTitle(), QStringLiteral("Error"));
        const auto* const view = shown()->findChild<QScrollArea*>();
        EXPECT_FALSE(view->isAncestorOf(shown()->findChild<QLabel*>(QStringLiteral("text"))));
        EXPECT_TRUE(view->isAncestorOf(shown()->findChild<QLabel*>(QStringLiteral("details"))));
        press(Qt::Key_Return);
    });
    VXMessage2::error(m_window, "It failed.", lines);
    soon([&] {
        EXPECT_EQ(shown()->windowTitle(), QStringLiteral("Program"));
        press(Qt::Key_Escape);
    });
    VXMessage2::about(m_window, "Program", "Version 1");
}

} // namespace
} // namespace VOXI
