#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxcombobox2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/vxaction2.h"

#include <vector>

namespace gallery {

using namespace VOXI;

namespace {

constexpr Dots EyeDots{0x00, 0x3c, 0x42, 0x99, 0x99, 0x42, 0x3c, 0x00};

/// A sign-up form: its button can be pressed once every field is what it should be.
class SignUp : public VXPanel2
{
public:
    SignUp(VXObject2* parent, EventLog& log)
        : VXPanel2(parent),
          m_page{this, new VXBoxLayout2(this, Direction::TopToBottom)},
          m_log(log)
    {
        m_page.layout->setMargins({0, 0, 0, 0});
        add("name", "Name", "first and last").setValidator(TextValidator::matching(L"\\S+ .*\\S"));
        add("mail", "Mail", "you@example.org")
            .setValidator(TextValidator::matching(L"[^@\\s]+@[^@\\s]+\\.[a-z]+"));
        add("age", "Age", "18 or more").setValidator(TextValidator::integer(18, 130));
        VXEdit2& country = add("country", "Country", "type a letter");
        country.setCompletion({{L"Brazil", L"Denmark", L"Egypt", L"France", L"Ghana", L"India",
                                L"Iceland", L"Japan", L"Kenya", L"Mexico"}});
        country.setClearButtonVisible(true);
        addPassword();

        const Box line = titledRow(m_page, "");
        m_button = new VXButton2("Sign up", line.panel);
        line.layout->addWidget(m_button);
        line.layout->addStretch();
        m_button->clicked().connect(this,
                                    [this] { m_log.add("signed up: " + m_fields[0]->text()); });
        judge();
    }

private:
    VXEdit2& add(const char* name, const char* title, const char* hint)
    {
        const Box line = titledRow(m_page, title);
        auto* field = new VXEdit2(line.panel);
        field->setObjectName(name);
        field->setPlaceholder(hint);
        line.layout->addWidget(field, 1);
        field->textEdited().connect(this, [this, name](const VXEditTextEvent2& event) {
            // What is typed as a password is nobody else's.
            const bool isSecret = event.edit()->echo() == TextEcho::Password;
            m_log.add(std::string(name)
                      + (isSecret ? ": edited" : ": \"" + event.edit()->text() + '"'));
            judge();
        });
        field->editingFinished().connect(
            this, [this, name] { m_log.add(std::string(name) + ": finished"); });
        m_fields.push_back(field);
        return *field;
    }

    void addPassword()
    {
        VXEdit2& password = add("password", "Password", "eight characters or more");
        password.setEcho(TextEcho::Password);
        password.setValidator(TextValidator::function([](const std::wstring& text) {
            return text.size() < 8 ? TextValidity::NotYet : TextValidity::Acceptable;
        }));
        auto* show = new VXAction2(&password);
        show->setLabel("Show");
        show->setIcon(icon(EyeDots, 0x405068ff));
        show->setCheckable(true);
        show->toggled().connect(this, [&password](const VXActionToggleEvent2& event) {
            password.setEcho(event.isChecked() ? TextEcho::Normal : TextEcho::Password);
        });
        password.addSideAction(show);
    }

    void judge()
    {
        bool isWhole = true;
        for (const VXEdit2* field : m_fields)
            isWhole = isWhole && field->isAcceptable() && !field->textU().empty();
        m_button->setEnabled(isWhole);
    }

    Box m_page;
    EventLog& m_log;
    std::vector<VXEdit2*> m_fields;
    VXButton2* m_button = nullptr;
};

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    page.layout->addWidget(new SignUp(page.panel, log));

    const Box choice = titledRow(page, "News");
    auto* news = new VXComboBox2(choice.panel);
    news->setObjectName("news");
    news->addItems({{L"Every day", 1},
                    {L"Once a week", 7},
                    {.text = L"At once (not yet)", .isEnabled = false}});
    news->addSeparator();
    news->addItem("Never");
    news->currentChanged().connect(&log, [&log](const VXComboBoxSelectEvent2& event) {
        log.add("news: " + event.comboBox()->currentText());
    });
    choice.layout->addWidget(news);
    choice.layout->addStretch();

    const Box mask = titledRow(page, "A date");
    auto* date = new VXEdit2("2026-11-22", mask.panel);
    date->setObjectName("date");
    date->setInputMask(L"9999-99-99;_");
    mask.layout->addWidget(date);
    mask.layout->addStretch();

    const Box reading = titledRow(page, "To be read");
    auto* fixed = new VXEdit2("select and copy me", reading.panel);
    fixed->setReadOnly(true);
    reading.layout->addWidget(fixed, 1);
    page.layout->addStretch();
    return page.panel;
}

} // namespace

Page formsPage()
{
    return {"forms", "Forms", "Texts to enter, judged while they are typed.", &create};
}

} // namespace gallery
