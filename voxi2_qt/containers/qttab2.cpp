#include "voxi2_qt/containers/qttab2.h"

#include "voxi2_qt/containers/qttabcontainer2.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qteventblocker.h"

#include <QTabBar>

#include <optional>
#include <utility>

namespace VOXI {

namespace {

using E = VXTab2Emitters;
using P = QtTab2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setText, &P::doSetText>(),
    TROV::row<&E::setTextU, &P::doSetTextU>(),
    TROV::row<&E::setIcon, &P::doSetIcon>(),
    TROV::row<&E::setTabToolTip, &P::doSetTabToolTip>(),
    TROV::row<&E::setTabToolTipU, &P::doSetTabToolTipU>(),
    TROV::row<&E::setTabEnabled, &P::doSetTabEnabled>(),
    TROV::row<&E::setTextColor, &P::doSetTextColor>(),
    TROV::row<&E::unsetTextColor, &P::doUnsetTextColor>(),
    TROV::row<&E::getText, &P::doGetText>(),
    TROV::row<&E::getTextU, &P::doGetTextU>(),
    TROV::row<&E::getIcon, &P::doGetIcon>(),
    TROV::row<&E::getTabToolTip, &P::doGetTabToolTip>(),
    TROV::row<&E::getTabToolTipU, &P::doGetTabToolTipU>(),
    TROV::row<&E::isTabEnabled, &P::doIsTabEnabled>(),
    TROV::row<&E::getTextColor, &P::doGetTextColor>(),
    TROV::row<&E::getContainer, &P::doGetContainer>(),
    TROV::row<&E::setClosable, &P::doSetClosable>(),
    TROV::row<&E::isClosable, &P::doIsClosable>());
// clang-format on

} // namespace

QtTab2::QtTab2(VXTab2* object, VXTab2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{}

void QtTab2::init()
{
    QtWidget2Shim::init();
    if (auto* container = dynamic_cast<QtTabContainer2*>(parentWidget()))
        container->insertPage(*this, -1);
}

void QtTab2::scheduleDelete()
{
    // Not only when it is deleted: what the user sees, and the container's count, are true at once.
    if (const QtTabContainer2* holder = container(); holder && !holder->isGoing())
        leave();
    QtContainer2::scheduleDelete();
}

void QtTab2::leave()
{
    std::optional<QtEventBlocker> focus;
    if (QtTabContainer2* holder = container())
        focus.emplace(*holder, std::initializer_list<WidgetEvent>{WidgetEvent::FocusIn});
    QtContainer2::leave();
}

// Requests ----------------------------------------------------------------------------------------

void QtTab2::doSetParent(VXObject* parent)
{
    QtTabContainer2* target = nullptr;
    withPeerOf<QtTabContainer2>(parent, [&](QtTabContainer2* peer) { target = peer; });
    if (!target)
        QtContainer2::doSetParent(parent);
    else if (target != container() && !isWithin(this, target))
        target->insertPage(*this, -1);
}

VXObject* QtTab2::doGetParent()
{
    const QtTabContainer2* holder = container();
    return holder ? holder->getHandle() : QtContainer2::doGetParent();
}

void QtTab2::doShow() { doSetVisible(true); }
void QtTab2::doHide() { doSetVisible(false); }

void QtTab2::doSetVisible(bool visible)
{
    // The container decides whose page is shown.
    if (QtTabContainer2* holder = container())
        holder->setPageVisible(*this, visible);
    else if (visible)
        QtContainer2::doShow();
    else
        QtContainer2::doHide();
}

void QtTab2::doSetColor(ColorRole role, Color color) { setVisibleColor(role, color); }
void QtTab2::doSetText(const std::string& text) { setTab(toQString(text)); }
void QtTab2::doSetTextU(const std::wstring& text) { setTab(toQString(text)); }

void QtTab2::doSetIcon(const Icon& icon)
{
    keepIcon(icon);
    withTab([&](QtTabContainer2& holder, int index) { holder.setTabIcon(index, VX2Qt(icon)); });
}

void QtTab2::doSetTabToolTip(const std::string& text) { setTip(toQString(text)); }
void QtTab2::doSetTabToolTipU(const std::wstring& text) { setTip(toQString(text)); }

void QtTab2::doSetTabEnabled(bool enabled)
{
    m_tabEnabled = enabled;
    if (QtTabContainer2* holder = container())
        holder->setPageChoosable(*this, enabled);
}

void QtTab2::doSetTextColor(Color color)
{
    m_textColor = VX2Qt(color);
    withTab([this](QtTabContainer2& holder, int index) {
        holder.tabBar()->setTabTextColor(index, m_textColor);
    });
}

void QtTab2::doUnsetTextColor()
{
    m_textColor = QColor();
    withTab([](QtTabContainer2& holder, int index) {
        holder.tabBar()->setTabTextColor(index, QColor());
    });
}

std::string QtTab2::doGetText() { return toStdString(m_text); }
std::wstring QtTab2::doGetTextU() { return toStdWString(m_text); }
Icon QtTab2::doGetIcon() { return keptIcon(); }
std::string QtTab2::doGetTabToolTip() { return toStdString(m_tip); }
std::wstring QtTab2::doGetTabToolTipU() { return toStdWString(m_tip); }
bool QtTab2::doIsTabEnabled() { return m_tabEnabled; }

Color QtTab2::doGetTextColor()
{
    if (m_textColor.isValid())
        return Qt2VX(m_textColor);
    const QtTabContainer2* holder = container();
    const QPalette& palette = holder ? holder->tabBar()->palette() : QWidget::palette();
    return Qt2VX(palette.color(QPalette::Active, QPalette::WindowText));
}

VXTabContainer2* QtTab2::doGetContainer() { return abstractObjectOf<VXTabContainer2>(container()); }

void QtTab2::doSetClosable(bool closable)
{
    if (std::exchange(m_isClosable, closable) == closable)
        return;
    if (QtTabContainer2* const holder = container())
        holder->applyClosable();
}

bool QtTab2::doIsClosable() { return m_isClosable; }

// Helpers -----------------------------------------------------------------------------------------

void QtTab2::decorate(QTabBar& bar, int index) const
{
    // Each of these would lay the whole bar out again.
    if (!m_tip.isEmpty())
        bar.setTabToolTip(index, m_tip);
    if (m_textColor.isValid())
        bar.setTabTextColor(index, m_textColor);
    if (!m_tabEnabled)
        bar.setTabEnabled(index, false);
}

QtTabContainer2* QtTab2::container() const
{
    const QWidget* stack = parentWidget();
    auto* holder = stack ? dynamic_cast<QtTabContainer2*>(stack->parentWidget()) : nullptr;
    return holder && holder->indexOf(const_cast<QtTab2*>(this)) >= 0 ? holder : nullptr;
}

template <class Function>
void QtTab2::withTab(Function&& function)
{
    if (QtTabContainer2* holder = container())
        function(*holder, holder->indexOf(this));
}

void QtTab2::setTab(const QString& text)
{
    m_text = text;
    withTab([&](QtTabContainer2& holder, int index) { holder.setTabText(index, text); });
}

void QtTab2::setTip(const QString& text)
{
    m_tip = text;
    withTab([&](QtTabContainer2& holder, int index) { holder.setTabToolTip(index, text); });
}

} // namespace VOXI
