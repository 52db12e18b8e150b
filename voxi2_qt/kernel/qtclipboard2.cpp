#include "voxi2_qt/kernel/qtclipboard2.h"

#include "voxi2_qt/kernel/qtconvert.h"

#include <QApplication>
#include <QSignalBlocker>

namespace VOXI {

namespace {

using E = VXClipboard2Emitters;
using P = QtClipboard2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setMimeData, &P::doSetMimeData>(),
    TROV::row<&E::clear, &P::doClear>(),
    TROV::row<&E::sync, &P::doSync>(),
    TROV::row<&E::retrieveData, &P::doRetrieveData>(),
    TROV::row<&E::getFormats, &P::doGetFormats>(),
    TROV::row<&E::getData, &P::doGetData>(),
    TROV::row<&E::hasSelection, &P::doHasSelection>(),
    TROV::row<&E::setSelection, &P::doSetSelection>(),
    TROV::row<&E::clearSelection, &P::doClearSelection>());
// clang-format on

QClipboard::Mode modeOf(ClipboardPlace place)
{
    return place == ClipboardPlace::Selection ? QClipboard::Selection : QClipboard::Clipboard;
}

/// Null where there is none, and where the platform has no such place.
const QMimeData* dataIn(QClipboard::Mode mode)
{
    const QClipboard* const clipboard = QApplication::clipboard();
    const bool isThere = mode == QClipboard::Clipboard || clipboard->supportsSelection();
    return isThere ? clipboard->mimeData(mode) : nullptr;
}

std::vector<std::string> formatsIn(QClipboard::Mode mode)
{
    std::vector<std::string> names;
    if (const QMimeData* const data = dataIn(mode)) {
        for (const QString& format : data->formats())
            names.push_back(toStdString(format));
    }
    return names;
}

} // namespace

QtClipboard2* QtClipboard2::ms_instance = nullptr;

QtClipboard2::QtClipboard2(VXObject2* object, VXClipboard2Emitters* emitters)
    : QtObject2Shim(object, emitters, s_requests)
{
    ms_instance = this;
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this,
            &QtClipboard2::slotDataChanged);
}

QtClipboard2::~QtClipboard2()
{
    if (ms_instance == this)
        ms_instance = nullptr;
}

// Requests ----------------------------------------------------------------------------------------

void QtClipboard2::doSetMimeData(const VXMimeData2& data)
{
    put(QClipboard::Clipboard, data);
    m_changes = 0;
}

/// Announced as what happens elsewhere is.
void QtClipboard2::doClear() { put(QClipboard::Clipboard, std::nullopt); }

void QtClipboard2::doSync(unsigned change)
{
    if (change >= m_changes)
        m_changes = 0;
}

any QtClipboard2::doRetrieveData(StringID format)
{
    return m_changes == 0 ? doGetData(ClipboardPlace::Clipboard, format) : any();
}

std::vector<std::string> QtClipboard2::doGetFormats(ClipboardPlace place)
{
    const std::optional<Content>& waiting = m_waiting[modeOf(place)];
    if (!waiting)
        return formatsIn(modeOf(place));
    std::vector<std::string> names;
    for (const StringID& format : waiting->value_or(VXMimeData2()).formats())
        names.push_back(format.getString());
    return names;
}

any QtClipboard2::doGetData(ClipboardPlace place, StringID format)
{
    const QtHandlerFrame frame(*this); // the application may have to make them
    if (const std::optional<Content> waiting = m_waiting[modeOf(place)])
        return waiting->value_or(VXMimeData2()).data(format);
    const QMimeData* const data = dataIn(modeOf(place));
    return data ? anyFromMime(*data, toQString(format.getString())) : any();
}

bool QtClipboard2::doHasSelection() { return QApplication::clipboard()->supportsSelection(); }
void QtClipboard2::doSetSelection(const VXMimeData2& data) { put(QClipboard::Selection, data); }
void QtClipboard2::doClearSelection() { put(QClipboard::Selection, std::nullopt); }

// Reports -----------------------------------------------------------------------------------------

void QtClipboard2::connectSignals()
{
    connect(QApplication::clipboard(), &QClipboard::selectionChanged, this,
            &QtClipboard2::slotSelectionChanged);
}

void QtClipboard2::slotDataChanged()
{
    if (isOwn(QClipboard::Clipboard) || isEchoOfClear())
        return;
    m_wasCleared = m_isClearing && formatsIn(QClipboard::Clipboard).empty();
    ++m_changes;
    reportMade(&E::changed, [this] {
        return VXClipboardEvent2(abstractObject<VXClipboard2>(), formatsIn(QClipboard::Clipboard),
                                 m_changes);
    });
}

void QtClipboard2::slotSelectionChanged()
{
    if (isOwn(QClipboard::Selection))
        return;
    reportMade(&E::selectionChanged, [this] {
        return VXClipboardEvent2(abstractObject<VXClipboard2>(), formatsIn(QClipboard::Selection),
                                 0);
    });
}

// Helpers -----------------------------------------------------------------------------------------

/// Qt destroys what is replaced, but goes on with it where it has asked for it: the data that are
/// there may be just what makes the application put others there.
void QtClipboard2::put(QClipboard::Mode mode, const Content& content)
{
    if (mode == QClipboard::Selection && !doHasSelection())
        return;
    if (!isMimeDataBeingMade()) {
        putNow(mode, content);
        return;
    }
    if (!m_waiting[mode])
        afterMimeDataIsMade(*this, [this, mode] {
            if (const auto waiting = std::exchange(m_waiting[mode], std::nullopt))
                put(mode, *waiting);
        });
    m_waiting[mode] = content;
}

void QtClipboard2::putNow(QClipboard::Mode mode, const Content& content)
{
    QClipboard* const clipboard = QApplication::clipboard();
    m_waiting[mode].reset();
    m_wasCleared = m_wasCleared && mode != QClipboard::Clipboard;
    if (content || mode == QClipboard::Selection) {
        const QSignalBlocker blocker(clipboard);
        if (content) {
            auto* const data = VX2Qt(*content, this);
            m_own[mode] = data;
            clipboard->setMimeData(data, mode);
        } else {
            clipboard->clear(mode);
        }
    } else {
        m_isClearing = true;
        clipboard->clear(mode);
        m_isClearing = false;
    }
}

/// Then what is announced came before it was put there: the former owner has ended, for example,
/// which the X server tells later.
bool QtClipboard2::isOwn(QClipboard::Mode mode) const
{
    return m_own[mode] && dataIn(mode) == m_own[mode];
}

/// The X server tells Qt of a clearing once more, later, before all that comes after it: another
/// program may have copied by then.
bool QtClipboard2::isEchoOfClear()
{
    const bool isEcho =
        !m_isClearing && m_wasCleared && QGuiApplication::platformName() == QLatin1String("xcb");
    m_wasCleared = m_wasCleared && !isEcho;
    return isEcho;
}

} // namespace VOXI
