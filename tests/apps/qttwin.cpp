#include "qttwin.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDial>
#include <QFormLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QToolButton>

namespace VOXI {

namespace {

void fillForms(QFormLayout& form)
{
    for (const char* const label :
         {"&Country", "&Password", "&Date", "An &even number", "To be &read"}) {
        auto* const edit = new QLineEdit;
        form.addRow(QLatin1String(label), edit);
        if (QLatin1String(label) == QLatin1String("&Password"))
            edit->setEchoMode(QLineEdit::Password);
        edit->setReadOnly(QLatin1String(label) == QLatin1String("To be &read"));
    }
    // Qt reads what is chosen, whatever the label.
    const std::pair<const char*, const char*> choices[] = {{"&News", "Every day"},
                                                           {"C&ity", "City number 1"}};
    for (const auto& [label, chosen] : choices) {
        auto* const box = new QComboBox;
        box->addItem(QLatin1String(chosen));
        form.addRow(QLatin1String(label), box);
    }
}

void fillButtons(QFormLayout& form)
{
    auto* const wrap = new QCheckBox(QStringLiteral("Word &wrap"));
    wrap->setChecked(true);
    form.addRow(wrap);
    form.addRow(new QCheckBox(QStringLiteral("&Ruler")));
    auto* const off = new QCheckBox(QStringLiteral("Out of reach"));
    off->setEnabled(false);
    form.addRow(off);
    auto* const portrait = new QRadioButton(QStringLiteral("Portrait"));
    portrait->setChecked(true);
    form.addRow(portrait);
    form.addRow(new QRadioButton(QStringLiteral("Landscape")));
    const std::pair<const char*, QToolButton::ToolButtonPopupMode> modes[] = {
        {"At once", QToolButton::InstantPopup},
        {"By its arrow", QToolButton::MenuButtonPopup},
        {"Held down", QToolButton::DelayedPopup}};
    for (const auto& [label, mode] : modes) {
        auto* const button = new QToolButton;
        button->setText(QLatin1String(label));
        button->setMenu(new QMenu(button));
        button->setPopupMode(mode);
        form.addRow(button);
    }
    auto* const beside = new QToolButton;
    beside->setText(QStringLiteral("Beside"));
    beside->setToolTip(QStringLiteral("Beside"));
    form.addRow(beside);
    form.addRow(new QPushButton(QStringLiteral("Bold and centred")));
}

void fillRanges(QFormLayout& form)
{
    form.addRow(QStringLiteral("Slider"), new QSlider(Qt::Horizontal));
    form.addRow(QStringLiteral("Dial"), new QDial);
    form.addRow(QStringLiteral("Spin box"), new QSpinBox);
    form.addRow(QStringLiteral("Progress bar"), new QProgressBar);
    auto* const list = new QListWidget;
    list->addItems({QStringLiteral("Mercury"), QStringLiteral("Venus")});
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setAccessibleName(QStringLiteral("List box")); // a label would not name it
    form.addRow(QStringLiteral("List box"), list);
}

} // namespace

std::unique_ptr<QWidget> plainTwin(const std::string& page)
{
    auto twin = std::make_unique<QWidget>();
    auto* const form = new QFormLayout(twin.get());
    if (page == "forms")
        fillForms(*form);
    else if (page == "buttons")
        fillButtons(*form);
    else if (page == "ranges")
        fillRanges(*form);
    else
        return nullptr;
    return twin;
}

} // namespace VOXI
