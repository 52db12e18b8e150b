#include "../eventlog.h"
#include "../page.h"
#include "voxi2/containers/vxformlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxnotificationbar2.h"

namespace gallery {

using namespace VOXI;

namespace {

/// A field is judged when its user has left it, and while he mends it; the button judges all.
class SignUp : public VXPanel2
{
public:
    explicit SignUp(VXObject2* parent) : VXPanel2(parent)
    {
        m_form->addRow(m_bar);
        add("&Name", m_name, TextValidator::matching(L"\\S+.*"), "Tell us what to call you.");
        add("&Mail", m_mail, TextValidator::matching(L"[^@\\s]+@[^@\\s]+\\.[a-z]+"),
            "A mail address looks like you@example.org.");
        add("&Age", m_age, TextValidator::integer(18, 130), "You have to be 18 or older.");
        const auto isLong = [](const std::wstring& text) {
            return text.size() < 8 ? TextValidity::NotYet : TextValidity::Acceptable;
        };
        m_password->setEcho(TextEcho::Password);
        add("&Password", m_password, TextValidator::function(isLong),
            "Take eight characters or more.");
        m_form->addRow("", m_terms);
        m_form->addRow("", m_button);
        m_button->clicked().connect(this, &SignUp::send);
        setTabOrder({m_name, m_mail, m_age, m_password, m_terms, m_button});
    }
    ~SignUp() override { retire(); }

private:
    void add(const char* label, VXEdit2* field, const TextValidator& validator, const char* advice)
    {
        field->setValidator(validator);
        m_form->addRow(label, field);
        field->textEdited().connect(this, [this, field, advice] {
            if (m_form->validationState(field) != ValidationState::None)
                judge(field, advice);
        });
        // Unlike `editingFinished` also where the text is not acceptable.
        field->focusLost().connect(this, [this, field, advice] {
            if (!field->textU().empty())
                judge(field, advice);
        });
        m_judgements.emplace_back([this, field, advice] { return judge(field, advice); });
    }

    bool judge(const VXEdit2* field, const char* advice)
    {
        const bool isGood = field->isAcceptable() && !field->textU().empty();
        m_form->setValidationState(field, isGood ? ValidationState::Good : ValidationState::Error,
                                   isGood ? "" : advice);
        return isGood;
    }

    void send()
    {
        bool isGood = true;
        for (const auto& judgement : m_judgements)
            isGood = judgement() && isGood;
        m_form->setValidationState(
            m_terms, m_terms->isChecked() ? ValidationState::None : ValidationState::Warning,
            "Please read them.");
        if (isGood && m_terms->isChecked())
            m_bar->notify({.text = L"Welcome, " + m_name->textU() + L"!",
                           .kind = NotificationKind::Success,
                           .timeout = 4000},
                          NotificationArrival::Replaces);
    }

    VXFormLayout2* m_form = new VXFormLayout2(this);
    VXNotificationBar2* m_bar = new VXNotificationBar2(this);
    VXEdit2* m_name = new VXEdit2(this);
    VXEdit2* m_mail = new VXEdit2(this);
    VXEdit2* m_age = new VXEdit2(this);
    VXEdit2* m_password = new VXEdit2(this);
    VXCheckBox2* m_terms = new VXCheckBox2("I have read the &terms", this);
    VXButton2* m_button = new VXButton2("&Sign up", this);
    std::vector<std::function<bool()>> m_judgements;
};

VXWidget2* create(VXObject2* parent, EventLog&) { return new SignUp(parent); }

} // namespace

Page signUpPage()
{
    return {"signup", "A sign-up form",
            "A whole program to be copied: fields that say what they want.", &create};
}

} // namespace gallery
