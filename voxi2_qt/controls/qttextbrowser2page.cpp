// What a text browser is asked about the page that it shows.

#include "textposition.h"
#include "voxi2_qt/controls/qttextbrowser2.h"
#include "voxi2_qt/controls/textbrowser.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QMimeData>
#include <QTextDocumentFragment>

namespace VOXI {

// Requests ----------------------------------------------------------------------------------------

bool QtTextBrowser2::doFind(const PageSearch& search)
{
    const QtProgramScope scope;
    QTextDocument::FindFlags flags;
    flags.setFlag(QTextDocument::FindBackward, search.backward);
    flags.setFlag(QTextDocument::FindCaseSensitively, search.caseSensitive);
    flags.setFlag(QTextDocument::FindWholeWords, search.wholeWords);
    return m_browser->findText(toQString(search.text), flags, search.wraps);
}

void QtTextBrowser2::doScrollToAnchor(const std::wstring& name)
{
    m_browser->scrollToAnchor(toQString(name));
}

void QtTextBrowser2::doSetZoom(int percent) { m_browser->setZoom(percent); }
int QtTextBrowser2::doGetZoom() { return m_browser->zoom(); }

void QtTextBrowser2::doSetSelection(TextRange range)
{
    const QtProgramScope scope;
    const QString whole = m_browser->toPlainText();
    QTextCursor cursor = m_browser->textCursor();
    cursor.setPosition(fromWidePosition(whole, range.start));
    cursor.setPosition(fromWidePosition(whole, qint64(range.start) + range.length),
                       QTextCursor::KeepAnchor);
    m_browser->setTextCursor(cursor);
}

TextRange QtTextBrowser2::doGetSelection()
{
    const QString whole = m_browser->toPlainText();
    const QTextCursor cursor = m_browser->textCursor();
    const int start = toWidePosition(whole, cursor.selectionStart());
    return {start, toWidePosition(whole, cursor.selectionEnd()) - start};
}

std::wstring QtTextBrowser2::doGetSelectedText()
{
    return toStdWString(m_browser->textCursor().selection().toPlainText());
}

VXMimeData2 QtTextBrowser2::doGetSelectedData()
{
    return m_browser->textCursor().hasSelection() ? Qt2VX(*m_browser->selectedData())
                                                  : VXMimeData2();
}

void QtTextBrowser2::doSelectAll()
{
    const QtProgramScope scope;
    m_browser->selectAll();
}

void QtTextBrowser2::doCopy() { m_browser->copy(); }

bool QtTextBrowser2::doPrintToPdf(const std::filesystem::path& file, PaperSize paper)
{
    return m_browser->printToPdf(toQFileName(file), {paper.width, paper.height});
}

} // namespace VOXI
