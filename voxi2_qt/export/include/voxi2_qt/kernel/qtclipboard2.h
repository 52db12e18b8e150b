#pragma once

#include "voxi2/kernel/vxclipboard2.h"
#include "voxi2_qt/kernel/qtobject2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QClipboard>
#include <QMimeData>
#include <QObject>
#include <QPointer>

#include <optional>

namespace VOXI {

/// The peer of the clipboard. There is one.
///
/// The abstract side may act on a change later than it happens. So changes are counted, and data
/// are held back until the last change was seen: the counter is then 0.
class VOXI2_QT_EXPORT QtClipboard2
    : public QtObject2Shim<VXObject2, VXClipboard2Emitters, QtObject2, QObject>
{
    Q_OBJECT

public:
    QtClipboard2(VXObject2* object, VXClipboard2Emitters* emitters);
    ~QtClipboard2() override;

    /// Null while there is none.
    static QtClipboard2* instance() noexcept { return ms_instance; }

    // Requests, in the order of the emitters table
    virtual void doSetMimeData(const VXMimeData2& data);
    virtual void doClear();
    virtual void doSync(unsigned change);
    virtual any doRetrieveData(StringID format);
    virtual std::vector<std::string> doGetFormats(ClipboardPlace place);
    virtual any doGetData(ClipboardPlace place, StringID format);
    virtual bool doHasSelection();
    virtual void doSetSelection(const VXMimeData2& data);
    virtual void doClearSelection();

protected:
    void connectSignals() override;

private Q_SLOTS:
    void slotDataChanged();
    void slotSelectionChanged();

private:
    /// What is put into a place; none to clear it.
    using Content = std::optional<VXMimeData2>;

    void put(QClipboard::Mode mode, const Content& content);
    void putNow(QClipboard::Mode mode, const Content& content);
    bool isOwn(QClipboard::Mode mode) const;
    bool isEchoOfClear();

    static QtClipboard2* ms_instance;

    unsigned m_changes = 0;              // since the last one that was seen
    std::optional<Content> m_waiting[2]; // until the data that are there have been read
    QPointer<const QMimeData> m_own[2];  // what was put there last
    bool m_isClearing = false;
    bool m_wasCleared = false; // and nothing else has happened since
};

} // namespace VOXI
