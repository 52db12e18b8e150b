// The standard editors, used as their user does, and the texts of values.

#include "propertysupport.h"
#include "voxi2/modelview/vxstandardpropertyeditors2.h"
#include "voxi_util/vxfont.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTextEdit>
#include <QToolButton>

#include <charconv>
#include <chrono>
#include <limits>
#include <stdexcept>

namespace VOXI {
namespace {

/// A type of the application's own.
struct Angle
{
    int m_degrees = 0;
};

TypeInfo angle()
{
    static const TypeInfo type = TypeInfo::registerType<Angle>(
        "angle", [](const Angle& value) { return std::to_string(value.m_degrees) + "deg"; },
        [](const std::string& text) -> std::optional<Angle> {
            Angle value;
            const auto end =
                std::from_chars(text.data(), text.data() + text.size(), value.m_degrees);
            return end.ec == std::errc() && std::string(end.ptr) == "deg" ? std::optional(value)
                                                                          : std::nullopt;
        });
    return type;
}

const std::vector<PropertyChoice> Sides = {{L"left", 1}, {L"right", 2}, {L"both", 3}};

class PropertyEditors : public PropertyBrowserTest
{
protected:
    PropertyEditors() { m_browser->setEditorFactory(VXStandardPropertyEditors2::shared()); }

    VXSimpleProperty2& addTyped(const PropertyType& type, const any& value)
    {
        m_browser->clear();
        auto* const made = new VXSimpleProperty2("name", type, &m_owner);
        EXPECT_TRUE(made->setValue(value));
        m_browser->addProperty(made);
        return *made;
    }
    template <class Q>
    Q& open()
    {
        m_browser->closeOpenEditor();
        m_browser->setCurrent(nullptr);
        click("name");
        auto* const made = qobject_cast<Q*>(editor("name"));
        if (!made)
            throw std::logic_error("no such editor");
        return *made;
    }
    /// Types a text in place of what is there, and Return; gives the value's text.
    std::string typed(const char* text)
    {
        QWidget& made = open<QWidget>();
        QTest::keyClick(&made, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&made, QString::fromUtf8(text));
        QTest::keyClick(&made, Qt::Key_Return);
        turn();
        return item("name")->text(1).toStdString();
    }
    /// Types a line before the others in their dialog, and clicks on a button there.
    void editLines(const char* button)
    {
        open<QLineEdit>().findChild<QToolButton*>()->click();
        QTextEdit* area = nullptr;
        EXPECT_TRUE(waitFor([&] {
            area = qobject_cast<QTextEdit*>(QApplication::focusWidget());
            return area;
        }));
        QTest::keyClicks(area, QStringLiteral("zero"));
        QTest::keyClick(area, Qt::Key_Return);
        for (QPushButton* each : area->window()->findChildren<QPushButton*>()) {
            if (each->text() == QLatin1String(button))
                return each->click();
        }
    }
};

TEST_F(PropertyEditors, checkBoxesCombosAndFlagsActAtOnce)
{
    VXSimpleProperty2& flag = addTyped(PropertyType::boolean(), true);
    Log edited(flag.valueEdited());
    QTest::keyClick(&open<QCheckBox>(), Qt::Key_Space);
    EXPECT_EQ(shown(), "name=false");
    EXPECT_EQ(edited.count(), 1);
    flag.setValidator([](const any&) { return std::wstring(L"no"); });
    QTest::keyClick(&open<QCheckBox>(), Qt::Key_Space);
    EXPECT_EQ(shown(), "name=false");

    addTyped(PropertyType::enumeration(Sides), 2);
    EXPECT_EQ(shown(), "name=right");
    auto& box = open<QComboBox>();
    EXPECT_EQ(box.currentText(), QStringLiteral("right"));
    QTest::keyClick(&box, Qt::Key_Up);
    EXPECT_EQ(shown(), "name=left");

    addTyped(PropertyType::flags(Sides), 1);
    auto& button = open<QToolButton>();
    const QList<QAction*> actions = button.menu()->actions();
    EXPECT_TRUE(actions[0]->isChecked() && !actions[1]->isChecked());
    actions[1]->trigger();
    EXPECT_EQ(shown(), "name=left | right | both");
    EXPECT_TRUE(actions[2]->isChecked());
    EXPECT_EQ(&button, editor("name"));
    actions[2]->trigger();
    EXPECT_EQ(shown(), "name=");
    EXPECT_FALSE(actions[0]->isChecked());
}

TEST_F(PropertyEditors, numbersHaveARangeAndSteps)
{
    addTyped(PropertyType::integer(-10, 50, 5), 20);
    auto& box = open<QSpinBox>();
    QTest::keyClick(&box, Qt::Key_Up);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(shown(), "name=25");
    QTest::keyClicks(&open<QSpinBox>(), QStringLiteral("31"));
    tree().setFocus(); // what is typed counts
    EXPECT_EQ(shown(), "name=31");

    constexpr long long Most = std::numeric_limits<long long>::max();
    addTyped(PropertyType::integer(0, Most, 10), Most - 1);
    const auto buttons = open<QLineEdit>().findChildren<QToolButton*>();
    ASSERT_EQ(buttons.size(), 2);
    buttons[1]->click();
    QTest::keyClick(editor("name"), Qt::Key_Return);
    EXPECT_EQ(shown(), "name=9223372036854775807");
    EXPECT_EQ(typed("12"), "12");
    EXPECT_EQ(typed("-1"), "12");

    addTyped(PropertyType::decimal(0, 1, 0.25, 2), 0.5);
    EXPECT_EQ(shown(), "name=0.50");
    for (int i = 0; i < 5; ++i)
        open<QLineEdit>().findChildren<QToolButton*>()[1]->click(),
            QTest::keyClick(editor("name"), Qt::Key_Return), turn();
    EXPECT_EQ(shown(), "name=1.00");
    EXPECT_EQ(typed("0.126"), "0.13");
    EXPECT_EQ(typed("nan"), "0.13");
    EXPECT_EQ(typed("1,5"), "0.13");
}

TEST_F(PropertyEditors, allElseIsTyped)
{
    addTyped(PropertyType::text(), "one");
    EXPECT_EQ(typed("two"), "two");
    VXSimpleProperty2& lines = addTyped(PropertyType::multilineText(), "a\\b\nc");
    EXPECT_EQ(shown(), "name=a\\\\b\\nc");
    EXPECT_EQ(typed("x\\ny\\\\n"), "x\\ny\\\\n");
    EXPECT_EQ(lines.valueAs<std::wstring>(), L"x\ny\\n");
    addTyped(PropertyType::color(), Color(1, 2, 3));
    EXPECT_EQ(typed("#ff800040"), "#ff800040");
    EXPECT_EQ(typed("red"), "#ff800040");
    VXSimpleProperty2& font = addTyped(PropertyType::font(), VXFont("Sans Serif", 9));
    EXPECT_EQ(typed("Serif, 12, bold, italic, underline"), "Serif, 12, bold, italic, underline");
    EXPECT_TRUE(font.valueAs<VXFont>().isBold() && font.valueAs<VXFont>().underline());
    EXPECT_EQ(typed("Serif, 12, fat"), "Serif, 12, bold, italic, underline");
    addTyped(PropertyType::date(), std::chrono::year(2024) / 2 / 29);
    EXPECT_EQ(shown(), "name=2024-02-29");
    EXPECT_EQ(typed("2025-02-29"), "2024-02-29");
    EXPECT_EQ(typed("2025-3-1"), "2025-03-01");
    VXSimpleProperty2& file = addTyped(PropertyType::file(), std::filesystem::path("a"));
    EXPECT_EQ(typed("/x/y"), "/x/y");
    EXPECT_EQ(file.valueAs<std::filesystem::path>(), "/x/y");
    addTyped(PropertyType::user(angle()), Angle{5});
    EXPECT_EQ(shown(), "name=5deg");
    EXPECT_EQ(typed("90deg"), "90deg");
    EXPECT_EQ(typed("steep"), "90deg");
}

TEST_F(PropertyEditors, severalLinesHaveADialog)
{
    VXSimpleProperty2& lines = addTyped(PropertyType::multilineText(), "one\ntwo");
    Log edited(lines.valueEdited());
    editLines("&Cancel");
    turn();
    EXPECT_EQ(lines.valueAs<std::wstring>(), L"one\ntwo");
    editLines("&OK");
    turn();
    EXPECT_EQ(lines.valueAs<std::wstring>(), L"zero\none\ntwo");
    EXPECT_EQ(edited.count(), 1);
    open<QLineEdit>().findChild<QToolButton*>()->click();
    delete m_browser; // with the dialog
    runDeletions();
    EXPECT_FALSE(QApplication::activeModalWidget());
}

TEST_F(PropertyEditors, severalLinesMayBeTheEndOfTheirBrowser)
{
    VXSimpleProperty2& lines = addTyped(PropertyType::multilineText(), "one");
    lines.valueEdited().connect(&lines, [this] { delete m_browser; });
    editLines("&OK");
    EXPECT_EQ(lines.valueAs<std::wstring>(), L"zero\none");
    runDeletions();
    EXPECT_FALSE(QApplication::activeModalWidget());
}

TEST_F(PropertyEditors, aColourIsChosenFromAPalette)
{
    addTyped(PropertyType::color(), Color(1, 2, 3));
    auto& box = open<QComboBox>();
    EXPECT_EQ(box.currentText(), QStringLiteral("#010203ff"));
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(shown(), "name=#000000ff");
}

/// Who opens an editor and leaves it has changed nothing.
TEST_F(PropertyEditors, whatWasNotTouchedIsNotTakenOver)
{
    VXSimpleProperty2& text = addTyped(PropertyType::text(), "one");
    Log edited(text.valueEdited());
    QWidget& line = open<QLineEdit>();
    text.setValue("by the program");
    QTest::keyClick(&line, Qt::Key_Return);
    EXPECT_EQ(shown(), "name=by the program");
    EXPECT_TRUE(edited.isEmpty());
    text.setValue(std::wstring(40'000, L'x'));
    EXPECT_TRUE(open<QLineEdit>().isReadOnly());
    VXSimpleProperty2& number = addTyped(PropertyType::integer(0, 100), 5);
    QWidget& box = open<QSpinBox>();
    number.setValue(6);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(shown(), "name=6");
}

/// Every value of a type reads back from its text, whatever is in it.
TEST(PropertyTypes, textsReadBack)
{
    const auto same = [](const PropertyType& type, const any& value) {
        const any kept = type.accepted(value);
        return kept.has_value() && type.areEqual(type.valueOf(type.textOf(kept)), kept);
    };
    EXPECT_TRUE(same(PropertyType::integer(), std::numeric_limits<long long>::min()));
    for (const double number : {0.1, -0.0, 5e-324, 1.7976931348623157e308, 1e21})
        EXPECT_TRUE(same(PropertyType::decimal(), number)) << number;
    EXPECT_TRUE(same(PropertyType::multilineText(), std::wstring(L"\\n\\\\\n\0x\xd800", 8)));
    EXPECT_TRUE(same(PropertyType::flags(Sides), 3));
    EXPECT_TRUE(same(PropertyType::color(), Color(1, 2, 3, 4)));
    EXPECT_TRUE(same(PropertyType::font(), VXFont("Sans", 7, 33, FontStyle::Oblique)));
    EXPECT_TRUE(same(PropertyType::font(), VXFont()));
    EXPECT_TRUE(same(PropertyType::font(), VXFont("", 7, VXFont::Bold)));
    using std::chrono::year;
    EXPECT_TRUE(same(PropertyType::date(), year(-5) / 1 / 2));
    EXPECT_TRUE(same(PropertyType::user(angle()), Angle{7}));

    EXPECT_FALSE(PropertyType::integer().accepted(18'446'744'073'709'551'615ull).has_value());
    EXPECT_FALSE(PropertyType::decimal().accepted(std::nan("")).has_value());
    EXPECT_FALSE(PropertyType::decimal().valueOf(L"inf").has_value());
    EXPECT_FALSE(PropertyType::date().accepted(year(2023) / 2 / 30).has_value());
    EXPECT_FALSE(PropertyType::flags(Sides).accepted(4).has_value());
    EXPECT_FALSE(PropertyType::enumeration({}).initialValue().has_value());
    EXPECT_EQ(PropertyType::integer(9, 3).initialValue().type(), typeid(long long));
    EXPECT_EQ(PropertyType::of(any(Angle{})).kind(), PropertyKind::User);
    EXPECT_EQ(PropertyType::of(any(PropertyType())).kind(), PropertyKind::Group);
}

} // namespace
} // namespace VOXI
