// What an engine's view is asked about the page that it shows.

#include "enginepage.h"
#include "engineview.h"
#include "pagescripts.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QJsonDocument>
#include <QMenu>
#include <QPageLayout>
#include <QPageSize>
#include <QSaveFile>
#include <QWebEngineContextMenuRequest>

#include <utility>

namespace VOXI {

namespace {

/// What `tellingScript` says.
WebScriptResult resultOf(const QString& said)
{
    using Result = WebScriptResult;
    const std::wstring rest = toStdWString(said.mid(1));
    switch (said.isEmpty() ? 0 : said.front().unicode()) {
    case u'-':
        return {Result::Outcome::Done};
    case u's':
        return {Result::Outcome::Done, Result::Type::Text, rest};
    case u'b':
        return {Result::Outcome::Done, Result::Type::Boolean, rest};
    case u'n':
        return {Result::Outcome::Done, Result::Type::Number, rest};
    case u'j':
        return {Result::Outcome::Done, Result::Type::Structure, rest};
    case u'e':
        return {Result::Outcome::Failed, Result::Type::Text, rest};
    default:
        return {};
    }
}

/// Of one that the page has not let be looked at. What it throws cannot be told from nothing.
WebScriptResult resultOf(const QVariant& value)
{
    using Result = WebScriptResult;
    const QString text = value.toString();
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
        return {Result::Outcome::Done};
    case QMetaType::QString:
        return {Result::Outcome::Done, Result::Type::Text, toStdWString(text)};
    case QMetaType::Bool:
        return {Result::Outcome::Done, Result::Type::Boolean, toStdWString(text)};
    case QMetaType::Int:
    case QMetaType::Double:
        return {Result::Outcome::Done, Result::Type::Number, toStdWString(text)};
    default:
        return {Result::Outcome::Done, Result::Type::Structure,
                toStdWString(QString::fromUtf8(
                    QJsonDocument::fromVariant(value).toJson(QJsonDocument::Compact)))};
    }
}

} // namespace

void EngineView::find(const TextSearch& search)
{
    QWebEnginePage::FindFlags flags;
    flags.setFlag(QWebEnginePage::FindBackward, search.isBackward);
    flags.setFlag(QWebEnginePage::FindCaseSensitively, search.caseSensitive);
    m_page->findText(toQString(search.text), flags);
}

QString EngineView::selectedText() const { return m_page->selectedText(); }
void EngineView::selectAll() { m_page->triggerAction(QWebEnginePage::SelectAll); }
void EngineView::clearSelection() { m_page->triggerAction(QWebEnginePage::Unselect); }
void EngineView::copy() { m_page->triggerAction(QWebEnginePage::Copy); }

WebTarget EngineView::target() const
{
    const auto* const request = m_widget->lastContextMenuRequest();
    if (!request)
        return {};
    return {.link = toStdWString(request->linkUrl().toString()),
            .linkText = toStdWString(request->linkText()),
            .media = toStdWString(request->mediaUrl().toString()),
            .selectedText = toStdWString(request->selectedText()),
            .isEditable = request->isContentEditable()};
}

void EngineView::run(const QString& script, std::function<void(WebScriptResult)> done)
{
    if (m_hasCrashed || !m_host.settings().areScriptsEnabled) {
        done({});
        return;
    }
    const auto take = [self = QPointer(this), script, done](const QVariant& said) {
        if (!self)
            return;
        if (const QString text = said.toString(); text != QLatin1String("x")) {
            self->later([done, text] { done(resultOf(text)); });
            return;
        }
        self->m_page->runJavaScript(script, [self, done](const QVariant& value) {
            if (self)
                self->later([done, value] { done(resultOf(value)); });
        });
    };
    m_page->runJavaScript(tellingScript(script), take);
}

void EngineView::post(const QString& text) { m_page->runJavaScript(messageTo(text)); }

void EngineView::print(const QString& file, const QSizeF& millimetres)
{
    constexpr double Margin = 10;
    constexpr double Least = 50;
    constexpr double Most = 5000;
    const auto isSide = [](double side) { return side >= Least && side <= Most; };
    if (file.isEmpty() || !isSide(millimetres.width()) || !isSide(millimetres.height())) {
        later([this, file] { m_host.pdfIsOver(file, false); });
        return;
    }
    const QPageLayout paper(
        QPageSize(millimetres, QPageSize::Millimeter, {}, QPageSize::ExactMatch),
        QPageLayout::Portrait, QMarginsF(Margin, Margin, Margin, Margin), QPageLayout::Millimeter);
    m_page->printToPdf(
        [self = QPointer(this), file](const QByteArray& bytes) {
            if (!self)
                return;
            QSaveFile out(file);
            const bool isWritten = !bytes.isEmpty() && out.open(QIODevice::WriteOnly)
                                   && out.write(bytes) == bytes.size() && out.commit();
            self->later([self, file, isWritten] { self->m_host.pdfIsOver(file, isWritten); });
        },
        paper);
}

void EngineView::wantMenu(const QPoint& place)
{
    const QPoint there = m_widget->mapTo(m_widget->parentWidget(), place);
    later([this, there] { m_host.contextMenuIsWanted(there); });
}

void EngineView::showOwnMenu(const QPoint& place)
{
    QMenu* const menu = m_widget->createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(m_widget->parentWidget()->mapToGlobal(place));
}

} // namespace VOXI
