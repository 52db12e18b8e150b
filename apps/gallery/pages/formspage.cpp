#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/containers/vxformlayout2.h"
#include "voxi2/controls/vxcombobox2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/kernel/vxaction2.h"
#include "voxi2/modelview/vxtablemodel2.h"

namespace gallery {

using namespace VOXI;

namespace {

constexpr Dots EyeDots{0x00, 0x3c, 0x42, 0x99, 0x99, 0x42, 0x3c, 0x00};

void logEdits(VXEdit2* edit, const char* name, EventLog& log)
{
    edit->setObjectName(name);
    edit->textEdited().connect(&log, [&log, name](const VXEditTextEvent2& event) {
        // What is typed as a password is nobody else's.
        const bool isSecret = event.edit()->echo() != TextEcho::Normal;
        log.add(std::string(name) + (isSecret ? ": edited" : ": \"" + event.edit()->text() + '"'));
    });
    edit->editingFinished().connect(&log,
                                    [&log, name] { log.add(std::string(name) + ": finished"); });
}

VXEdit2* addPassword(VXFormLayout2* form, VXObject2* parent)
{
    auto* password = new VXEdit2(parent);
    password->setEcho(TextEcho::Password);
    password->setPlaceholder("can be looked at");
    auto* show = new VXAction2(password);
    show->setLabel("Show");
    show->setIcon(icon(EyeDots, 0x405068ff));
    show->setCheckable(true);
    show->toggled().connect(password, [password](const VXActionToggleEvent2& event) {
        password->setEcho(event.isChecked() ? TextEcho::Normal : TextEcho::Password);
    });
    password->addSideAction(show);
    form->addRow("&Password", password);
    return password;
}

VXEdit2* addCountry(VXFormLayout2* form, VXObject2* parent)
{
    auto* country = new VXEdit2(parent);
    country->setPlaceholder("type a letter");
    country->setCompletion({{L"Brazil", L"Denmark", L"Egypt", L"France", L"Ghana", L"India",
                             L"Iceland", L"Japan", L"Kenya", L"Mexico"}});
    country->setClearButtonVisible(true);
    form->addRow("&Country", country);
    return country;
}

void addNews(VXFormLayout2* form, VXObject2* parent, EventLog& log)
{
    auto* news = new VXComboBox2(parent);
    news->setObjectName("news");
    news->addItems({{L"Every day", 1},
                    {L"Once a week", 7},
                    {.text = L"At once (not yet)", .isEnabled = false}});
    news->addSeparator();
    news->addItem("Never");
    news->currentChanged().connect(&log, [&log](const VXComboBoxSelectEvent2& event) {
        log.add("news: " + event.comboBox()->currentText());
    });
    form->addRow("&News", news);
}

/// A combo box for a hundred thousand, of which it knows those that were seen.
void addCity(VXFormLayout2* form, VXObject2* parent, EventLog& log)
{
    auto* model = new VXTableModel2({"city"}, parent);
    for (int i = 1; i <= 100'000; ++i)
        model->appendRow({"City number " + std::to_string(i)});
    auto* city = new VXComboBox2(parent);
    city->setObjectName("city");
    city->setViewModel(model);
    city->currentChanged().connect(&log, [&log](const VXComboBoxSelectEvent2& event) {
        log.add("city: row " + std::to_string(event.newUid()));
    });
    form->addRow("C&ity", city);
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    auto* page = new VXPanel2(parent);
    auto* form = new VXFormLayout2(page);
    logEdits(addCountry(form, page), "country", log);
    logEdits(addPassword(form, page), "password", log);
    addNews(form, page, log);
    addCity(form, page, log);

    auto* date = new VXEdit2("2026-11-22", page);
    date->setInputMask(L"9999-99-99;_");
    logEdits(date, "date", log);
    form->addRow("&Date", date);

    auto* even = new VXEdit2("2026", page);
    even->setValidator(TextValidator::matching(L"-?[0-9]*[02468]"));
    even->textEdited().connect(form, [form, even] {
        const bool isGood = even->isAcceptable();
        form->setValidationState(even, isGood ? ValidationState::Good : ValidationState::Error,
                                 isGood ? "" : "This number is not even.");
    });
    logEdits(even, "number", log);
    form->addRow("An &even number", even);

    auto* fixed = new VXEdit2("select and copy me", page);
    fixed->setReadOnly(true);
    form->addRow("To be &read", fixed);
    return page;
}

} // namespace

Page formsPage()
{
    return {"forms", "Forms", "Texts to enter, judged while they are typed.", &create};
}

} // namespace gallery
