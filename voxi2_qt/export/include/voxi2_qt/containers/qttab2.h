#pragma once

#include "voxi2/containers/vxtab2.h"
#include "voxi2_qt/containers/qtcontainer2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QColor>
#include <QString>

QT_BEGIN_NAMESPACE
class QTabBar;
QT_END_NAMESPACE

namespace VOXI {

class QtTabContainer2;

/// The peer of the tab: the page, which keeps what its tab shows for the container that it is in.
class VOXI2_QT_EXPORT QtTab2 : public QtWidget2Shim<VXTab2, VXTab2Emitters, QtContainer2, QWidget>
{
    Q_OBJECT

public:
    QtTab2(VXTab2* object, VXTab2Emitters* emitters, QWidget* parent);

    void init() override;
    void scheduleDelete() override;
    void leave() override;
    void doSetParent(VXObject* parent) override;
    VXObject* doGetParent() override;
    void doShow() override;
    void doHide() override;
    void doSetVisible(bool visible) override;
    void doSetColor(ColorRole role, Color color) override;

    // Requests, in the order of the emitters table
    virtual void doSetText(const std::string& text);
    virtual void doSetTextU(const std::wstring& text);
    virtual void doSetIcon(const Icon& icon);
    virtual void doSetTabToolTip(const std::string& text);
    virtual void doSetTabToolTipU(const std::wstring& text);
    virtual void doSetTabEnabled(bool enabled);
    virtual void doSetTextColor(Color color);
    virtual void doUnsetTextColor();
    virtual std::string doGetText();
    virtual std::wstring doGetTextU();
    virtual Icon doGetIcon();
    virtual std::string doGetTabToolTip();
    virtual std::wstring doGetTabToolTipU();
    virtual bool doIsTabEnabled();
    virtual Color doGetTextColor();
    virtual VXTabContainer2* doGetContainer();
    virtual void doSetClosable(bool closable);
    virtual bool doIsClosable();

    const QString& text() const noexcept { return m_text; }
    Icon icon() const { return keptIcon(); }
    bool isClosable() const noexcept { return m_isClosable; }

    /// Shows on a tab new in a bar what text and icon do not say.
    void decorate(QTabBar& bar, int index) const;

private:
    QtTabContainer2* container() const;
    template <class Function>
    void withTab(Function&& function);
    void setTab(const QString& text);
    void setTip(const QString& text);

    QString m_text;
    QString m_tip;
    QColor m_textColor; // invalid while it is that of the other tabs
    bool m_tabEnabled = true;
    bool m_isClosable = true;
};

} // namespace VOXI
