#include "voxi2_qt/kernel/qtaction2.h"

#include "qtignored.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtsignalblocker.h"

#include <QActionGroup>
#include <QIcon>
#include <QKeySequence>
#include <QShortcutEvent>
#include <QWidget>

#include <map>

namespace VOXI {

namespace {

using E = VXAction2Emitters;
using P = QtAction2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setAccelerator, &P::doSetAccelerator>(),
    TROV::row<&E::setAccelerators, &P::doSetAccelerators>(),
    TROV::row<&E::setCheckable, &P::doSetCheckable>(),
    TROV::row<&E::setChecked, &P::doSetChecked>(),
    TROV::row<&E::setEnabled, &P::doSetEnabled>(),
    TROV::row<&E::setIcon, &P::doSetIcon>(),
    TROV::row<&E::setLabel, &P::doSetLabel>(),
    TROV::row<&E::setLabelU, &P::doSetLabelU>(),
    TROV::row<&E::setStatusTip, &P::doSetStatusTip>(),
    TROV::row<&E::setToolTip, &P::doSetToolTip>(),
    TROV::row<&E::setToolTipU, &P::doSetToolTipU>(),
    TROV::row<&E::setVisible, &P::doSetVisible>(),
    TROV::row<&E::getAccelerator, &P::doGetAccelerator>(),
    TROV::row<&E::getAccelerators, &P::doGetAccelerators>(),
    TROV::row<&E::isCheckable, &P::doIsCheckable>(),
    TROV::row<&E::isChecked, &P::doIsChecked>(),
    TROV::row<&E::isEnabled, &P::doIsEnabled>(),
    TROV::row<&E::getIcon, &P::doGetIcon>(),
    TROV::row<&E::getLabel, &P::doGetLabel>(),
    TROV::row<&E::getStatusTip, &P::doGetStatusTip>(),
    TROV::row<&E::getToolTip, &P::doGetToolTip>(),
    TROV::row<&E::isVisible, &P::doIsVisible>(),
    asUserRow<&E::toggle, &P::doimToggle>(),
    asUserRow<&E::trigger, &P::doimTrigger>(),
    TROV::row<&E::setStatusTipU, &P::doSetStatusTipU>(),
    TROV::row<&E::setSeparator, &P::doSetSeparator>(),
    TROV::row<&E::setShortcutContext, &P::doSetShortcutContext>(),
    TROV::row<&E::setAutoRepeat, &P::doSetAutoRepeat>(),
    TROV::row<&E::setGroup, &P::doSetGroup>(),
    TROV::row<&E::attachTo, &P::doAttachTo>(),
    TROV::row<&E::detachFrom, &P::doDetachFrom>(),
    TROV::row<&E::getLabelU, &P::doGetLabelU>(),
    TROV::row<&E::getStatusTipU, &P::doGetStatusTipU>(),
    TROV::row<&E::getToolTipU, &P::doGetToolTipU>(),
    TROV::row<&E::isSeparator, &P::doIsSeparator>(),
    TROV::row<&E::getShortcutContext, &P::doGetShortcutContext>(),
    TROV::row<&E::isAutoRepeat, &P::doIsAutoRepeat>());
// clang-format on

// Text that is no key sequence does not make an empty one, but one without a portable text.
std::string portableText(const QKeySequence& keys)
{
    return toStdString(keys.toString(QKeySequence::PortableText));
}

QKeySequence parse(const QtAction2& action, const std::string& accelerator,
                   CallPlace where = CallPlace::current())
{
    const QKeySequence keys(toQString(accelerator), QKeySequence::PortableText);
    if (!keys.toString(QKeySequence::PortableText).isEmpty())
        return keys;
    ignored(
        action, [&] { return "nobody understands \"" + accelerator + '"'; }, where);
    return {};
}

/// The Qt groups by the ids of the abstract ones; each lives while it has actions.
std::map<unsigned, QActionGroup*>& groups()
{
    static auto* instance = new std::map<unsigned, QActionGroup*>;
    return *instance;
}

} // namespace

QtAction2::QtAction2(VXAction2* object, VXAction2Emitters* emitters, QObject* parent)
    : QtObject2Shim(object, emitters, s_requests, parent)
{}

QtAction2::~QtAction2() { leaveGroup(); }

// Requests ----------------------------------------------------------------------------------------

void QtAction2::doSetAccelerator(const std::string& accelerator)
{
    const QKeySequence keys = parse(*this, accelerator);
    if (!keys.isEmpty())
        setShortcut(keys);
}

void QtAction2::doSetAccelerators(const VXStringList& accelerators)
{
    QList<QKeySequence> all;
    for (const std::string& accelerator : accelerators) {
        const QKeySequence keys = parse(*this, accelerator);
        if (!keys.isEmpty())
            all.append(keys);
    }
    setShortcuts(all);
}

void QtAction2::doSetCheckable(bool checkable)
{
    if (isCheckable() == checkable)
        return;
    // An action remembers that it was checked while it was not checkable, and would report it.
    quietly([&] {
        setCheckable(checkable);
        if (isChecked())
            uncheckOthers(actionGroup());
    });
}

void QtAction2::doSetChecked(bool checked)
{
    if (isCheckable() && isChecked() == checked)
        return;
    if (checked && isCheckable())
        uncheckOthers(actionGroup());
    quietly([&] { setChecked(checked); });
}

void QtAction2::doSetEnabled(bool enabled)
{
    if (isEnabled() != enabled)
        setEnabled(enabled);
}

void QtAction2::doSetIcon(const Icon& icon)
{
    if (m_icon == icon)
        return;
    m_icon = icon;
    setIcon(VX2Qt(icon));
}

void QtAction2::doSetLabel(const std::string& label) { changeText(toQString(label)); }
void QtAction2::doSetLabelU(const std::wstring& label) { changeText(toQString(label)); }
void QtAction2::doSetStatusTip(const std::string& text) { changeStatusTip(toQString(text)); }
void QtAction2::doSetToolTip(const std::string& text) { changeToolTip(toQString(text)); }
void QtAction2::doSetToolTipU(const std::wstring& text) { changeToolTip(toQString(text)); }

void QtAction2::doSetVisible(bool visible)
{
    if (isVisible() != visible)
        setVisible(visible);
}

std::string QtAction2::doGetAccelerator() { return portableText(shortcut()); }

VXStringList QtAction2::doGetAccelerators()
{
    VXStringList result;
    for (const QKeySequence& keys : shortcuts())
        result.push_back(portableText(keys));
    return result;
}

bool QtAction2::doIsCheckable() { return isCheckable(); }
bool QtAction2::doIsChecked() { return isChecked(); }
bool QtAction2::doIsEnabled() { return isEnabled(); }
Icon QtAction2::doGetIcon() { return m_icon; }
std::string QtAction2::doGetLabel() { return toStdString(text()); }
std::string QtAction2::doGetStatusTip() { return toStdString(statusTip()); }
std::string QtAction2::doGetToolTip() { return toStdString(toolTip()); }
bool QtAction2::doIsVisible() { return isVisible(); }
void QtAction2::doimToggle(bool checked) { setChecked(checked); }
void QtAction2::doimTrigger() { activate(QAction::Trigger); }
void QtAction2::doSetStatusTipU(const std::wstring& text) { changeStatusTip(toQString(text)); }
void QtAction2::doSetSeparator(bool separator) { setSeparator(separator); }

void QtAction2::doSetShortcutContext(ShortcutContext context)
{
    setShortcutContext(VX2Qt(context));
}

void QtAction2::doSetAutoRepeat(bool repeat) { setAutoRepeat(repeat); }

void QtAction2::doSetGroup(unsigned group, ActionExclusion exclusion)
{
    const auto found = groups().find(group);
    if (found == groups().end() || found->second != actionGroup())
        leaveGroup();
    if (group == 0)
        return;
    becomeHeard(); // what is checked by the user unchecks others
    QActionGroup*& qGroup = groups()[group];
    if (!qGroup)
        qGroup = new QActionGroup(nullptr);
    qGroup->setExclusionPolicy(VX2Qt(exclusion));
    if (actionGroup() == qGroup)
        return; // what is checked stays so until the next choice
    if (isChecked())
        uncheckOthers(qGroup);
    setActionGroup(qGroup);
}

void QtAction2::doAttachTo(VXWidget2* widget)
{
    withWidgetOf(widget, [this](QWidget* qWidget) {
        if (qWidget)
            qWidget->addAction(this);
    });
}

void QtAction2::doDetachFrom(VXWidget2* widget)
{
    withWidgetOf(widget, [this](QWidget* qWidget) {
        if (qWidget)
            qWidget->removeAction(this);
    });
}

std::wstring QtAction2::doGetLabelU() { return toStdWString(text()); }
std::wstring QtAction2::doGetStatusTipU() { return toStdWString(statusTip()); }
std::wstring QtAction2::doGetToolTipU() { return toStdWString(toolTip()); }
bool QtAction2::doIsSeparator() { return isSeparator(); }
ShortcutContext QtAction2::doGetShortcutContext() { return Qt2VX(shortcutContext()); }
bool QtAction2::doIsAutoRepeat() { return autoRepeat(); }

// Reports -----------------------------------------------------------------------------------------

void QtAction2::connectSignals()
{
    QObject::connect(this, &QAction::triggered, this, &QtAction2::slotActionTriggered);
    QObject::connect(this, &QAction::toggled, this, &QtAction2::slotActionToggled);
}

void QtAction2::slotActionTriggered() { report(&E::triggered); }

void QtAction2::slotActionToggled(bool checked)
{
    // Qt knows of one former choice, and a group that has become exclusive may have several.
    const QPointer<QtAction2> self(this);
    for (const QPointer<QtAction2>& former : checked ? checkedOthers(actionGroup()) : Others()) {
        if (former)
            former->setChecked(false);
    }
    if (!self)
        return;
    report(&E::toggled, checked);
}

bool QtAction2::event(QEvent* event)
{
    if (event->type() == QEvent::Shortcut) {
        const auto* shortcut = static_cast<const QShortcutEvent*>(event);
        // Qt's own answer is a line in the log; it stays for when nobody listens.
        if (shortcut->isAmbiguous() && ask(&E::ambiguous, portableText(shortcut->key())))
            return true;
    }
    return QtObject2Shim::event(event);
}

// Helpers -----------------------------------------------------------------------------------------

void QtAction2::changeText(const QString& text)
{
    if (this->text() != text)
        setText(text);
}

void QtAction2::changeStatusTip(const QString& text)
{
    if (statusTip() != text)
        setStatusTip(text);
}

void QtAction2::changeToolTip(const QString& text)
{
    if (toolTip() != text)
        setToolTip(text);
}

template <class Function>
void QtAction2::quietly(Function&& change)
{
    {
        const QtSignalBlocker blocker(this);
        change();
    }
    // What groups know of the state of their actions they learn from this signal.
    if (actionGroup())
        Q_EMIT changed();
}

QtAction2::Others QtAction2::checkedOthers(const QActionGroup* group) const
{
    Others others;
    if (!group || !group->isExclusive())
        return others;
    for (QAction* action : group->actions()) {
        auto* other = action->isChecked() ? dynamic_cast<QtAction2*>(action) : nullptr;
        if (other && other != this)
            others.emplace_back(other);
    }
    return others;
}

void QtAction2::uncheckOthers(const QActionGroup* group)
{
    for (QtAction2* former : checkedOthers(group))
        former->quietly([&] { former->setChecked(false); });
}

void QtAction2::leaveGroup()
{
    QActionGroup* group = actionGroup();
    if (!group)
        return;
    setActionGroup(nullptr);
    if (group->actions().isEmpty()) {
        std::erase_if(groups(), [group](const auto& entry) { return entry.second == group; });
        delete group;
    }
}

} // namespace VOXI
