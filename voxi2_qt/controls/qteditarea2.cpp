#include "voxi2_qt/controls/qteditarea2.h"

#include "../kernel/qtignored.h"
#include "plaintextlayout.h"
#include "qteditarea2scopes.h"
#include "textcoloring.h"
#include "textmargin.h"
#include "textposition.h"
#include "textstyle.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "widepositions.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

using E = VXEditArea2Emitters;
using P = QtEditArea2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::append, &P::doAppend>(),
    TROV::row<&E::appendU, &P::doAppendU>(),
    TROV::row<&E::replace, &P::doReplace>(),
    TROV::row<&E::getTextOf, &P::doGetTextOf>(),
    TROV::row<&E::getLength, &P::doGetLength>(),
    TROV::row<&E::getLineCount, &P::doGetLineCount>(),
    TROV::row<&E::getLine, &P::doGetLine>(),
    TROV::row<&E::setMaximumLineCount, &P::doSetMaximumLineCount>(),
    TROV::row<&E::getMaximumLineCount, &P::doGetMaximumLineCount>(),
    TROV::row<&E::setModified, &P::doSetModified>(),
    TROV::row<&E::isModified, &P::doIsModified>(),
    TROV::row<&E::setRichText, &P::doSetRichText>(),
    TROV::row<&E::isRichText, &P::doIsRichText>(),
    TROV::row<&E::setMarkup, &P::doSetMarkup>(),
    TROV::row<&E::getMarkup, &P::doGetMarkup>(),
    TROV::row<&E::setStyle, &P::doSetStyle>(),
    TROV::row<&E::getStyle, &P::doGetStyle>(),
    TROV::row<&E::setWrap, &P::doSetWrap>(),
    TROV::row<&E::getWrap, &P::doGetWrap>(),
    TROV::row<&E::setTabWidth, &P::doSetTabWidth>(),
    TROV::row<&E::getTabWidth, &P::doGetTabWidth>(),
    TROV::row<&E::setZoom, &P::doSetZoom>(),
    TROV::row<&E::getZoom, &P::doGetZoom>(),
    TROV::row<&E::setLineNumbersVisible, &P::doSetLineNumbersVisible>(),
    TROV::row<&E::areLineNumbersVisible, &P::doAreLineNumbersVisible>(),
    TROV::row<&E::setCurrentLineHighlighted, &P::doSetCurrentLineHighlighted>(),
    TROV::row<&E::isCurrentLineHighlighted, &P::doIsCurrentLineHighlighted>(),
    TROV::row<&E::setCursorPlace, &P::doSetCursorPlace>(),
    TROV::row<&E::getCursorPlace, &P::doGetCursorPlace>(),
    TROV::row<&E::getPlaceOf, &P::doGetPlaceOf>(),
    TROV::row<&E::getPositionOf, &P::doGetPositionOf>(),
    TROV::row<&E::setTopLine, &P::doSetTopLine>(),
    TROV::row<&E::getTopLine, &P::doGetTopLine>(),
    TROV::row<&E::scrollTo, &P::doScrollTo>(),
    TROV::row<&E::find, &P::doFind>(),
    TROV::row<&E::findFrom, &P::doFindFrom>(),
    TROV::row<&E::replaceFound, &P::doReplaceFound>(),
    TROV::row<&E::replaceAll, &P::doReplaceAll>(),
    TROV::row<&E::setUndoEnabled, &P::doSetUndoEnabled>(),
    TROV::row<&E::isUndoEnabled, &P::doIsUndoEnabled>(),
    TROV::row<&E::beginUndoGroup, &P::doBeginUndoGroup>(),
    TROV::row<&E::endUndoGroup, &P::doEndUndoGroup>(),
    TROV::row<&E::setMarksVisible, &P::doSetMarksVisible>(),
    TROV::row<&E::areMarksVisible, &P::doAreMarksVisible>(),
    TROV::row<&E::setMark, &P::doSetMark>(),
    TROV::row<&E::removeMark, &P::doRemoveMark>(),
    TROV::row<&E::clearMarks, &P::doClearMarks>(),
    TROV::row<&E::getMarks, &P::doGetMarks>(),
    TROV::row<&E::recolor, &P::doRecolor>(),
    TROV::row<&E::answerColoring, &P::doAnswerColoring>(),
    asUserRow<&E::command, &P::doimCommand>(),
    asUserRow<&E::clickMargin, &P::doimClickMargin>(),
    TROV::row<&E::getPositionRect, &P::doGetPositionRect>(),
    TROV::row<&E::setSuggestionLength, &P::doSetSuggestionLength>(),
    TROV::row<&E::getSuggestionLength, &P::doGetSuggestionLength>(),
    TROV::row<&E::suggest, &P::doSuggest>(),
    TROV::row<&E::getSuggestions, &P::doGetSuggestions>(),
    TROV::row<&E::answerSuggestions, &P::doAnswerSuggestions>(),
    asUserRow<&E::askForSuggestions, &P::doimAskForSuggestions>(),
    asUserRow<&E::takeSuggestion, &P::doimTakeSuggestion>());
// clang-format on

QString withPlainLineEnds(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    return text;
}

} // namespace

QtEditArea2::QtEditArea2(VXEditArea2* object, VXEditArea2Emitters* emitters, QWidget* parent)
    : QtAbstractEdit2Shim(object, emitters, s_requests, parent),
      m_positions(std::make_unique<WidePositions>()),
      m_margin(new TextMargin(*this)),
      m_coloring(new TextColoring(
          *this, [this] { return isHeard(&E::coloringWanted); },
          [this](unsigned query, int line, const QString& text) {
              askForColors(query, line, text);
          }))
{
    setAcceptRichText(false);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    text().setDocumentLayout(new PlainTextLayout(&text()));
    text().documentLayout()->setPaintDevice(viewport());
    connectDocument();
    applyTabWidth();
    connect(this, &QTextEdit::cursorPositionChanged, this, &QtEditArea2::slotCursorPositionChanged);
    connect(m_margin, &TextMargin::clicked, this, &QtEditArea2::slotMarginClicked);
}

QtEditArea2::~QtEditArea2() { endPeer(); }

// Requests ----------------------------------------------------------------------------------------

void QtEditArea2::doSetCursorPosition(int position)
{
    settle();
    const QtProgramScope scope;
    show(cursorOver({position, 0}));
}

int QtEditArea2::doGetCursorPosition() { return toWide(textCursor().position()); }

void QtEditArea2::doSetSelection(TextRange range)
{
    settle();
    const QtProgramScope scope;
    show(cursorOver(range));
}

TextRange QtEditArea2::doGetSelection()
{
    const QTextCursor cursor = textCursor();
    return rangeOf(cursor.selectionStart(), cursor.selectionEnd());
}

std::wstring QtEditArea2::doGetSelectedText()
{
    const QTextCursor cursor = textCursor();
    return toStdWString(textBetween(text(), cursor.selectionStart(), cursor.selectionEnd()));
}

void QtEditArea2::doInsert(const std::wstring& text)
{
    settle();
    if (isReadOnly())
        return;
    const QtProgramScope scope;
    ProgramEdit edit(*this, textCursor());
    edit.cursor().insertText(toQString(text));
    edit.end();
    show(edit.cursor());
}

void QtEditArea2::doUndo()
{
    QtAbstractEdit2Shim::doUndo();
    m_isGroupBegun = false;
}

void QtEditArea2::doRedo()
{
    QtAbstractEdit2Shim::doRedo();
    m_isGroupBegun = false;
}

bool QtEditArea2::doIsUndoAvailable() { return settled().isUndoAvailable(); }
bool QtEditArea2::doIsRedoAvailable() { return settled().isRedoAvailable(); }

void QtEditArea2::doCut()
{
    settle();
    {
        const ProgramEdit edit(*this, textCursor());
        QtAbstractEdit2Shim::doCut();
    }
    ensureCursorVisible();
}

void QtEditArea2::doPaste()
{
    settle();
    {
        const ProgramEdit edit(*this, textCursor());
        QtAbstractEdit2Shim::doPaste();
    }
    ensureCursorVisible();
}

void QtEditArea2::doAppend(const std::string& lines) { awaitTurn(toQString(lines)); }
void QtEditArea2::doAppendU(const std::wstring& lines) { awaitTurn(toQString(lines)); }

void QtEditArea2::doReplace(TextRange range, const std::wstring& text)
{
    settle();
    ProgramEdit edit(*this, cursorOver(range));
    edit.cursor().insertText(toQString(text));
}

std::wstring QtEditArea2::doGetTextOf(TextRange range)
{
    settle();
    const QTextCursor cursor = cursorOver(range);
    return toStdWString(textBetween(text(), cursor.selectionStart(), cursor.selectionEnd()));
}

int QtEditArea2::doGetLength() { return toWide(settled().characterCount()); }
int QtEditArea2::doGetLineCount() { return settled().blockCount(); }

std::wstring QtEditArea2::doGetLine(int line)
{
    const int last = settled().blockCount() - 1;
    return toStdWString(text().findBlockByNumber(std::clamp(line, 0, last)).text());
}

void QtEditArea2::doSetMaximumLineCount(int count)
{
    const QtProgramScope scope;
    settled().setMaximumBlockCount(std::max(count, 0));
    text().setUndoRedoEnabled(m_isUndoEnabled && count <= 0);
}

int QtEditArea2::doGetMaximumLineCount() { return text().maximumBlockCount(); }

void QtEditArea2::doSetModified(bool modified)
{
    const QtProgramScope scope;
    settled().setModified(modified);
}

bool QtEditArea2::doIsModified() { return settled().isModified(); }

/// Qt's own layout cannot be had back by a document that has another one.
void QtEditArea2::doSetRichText(bool rich)
{
    settle();
    if (rich == m_isRich)
        return;
    const QtProgramScope scope;
    const QString kept = wholeText();
    const bool isModified = text().isModified();
    const int most = text().maximumBlockCount();
    auto* const made = new QTextDocument(this);
    if (!rich)
        made->setDocumentLayout(new PlainTextLayout(made));
    m_isRich = rich;
    adopt(made);
    setAcceptRichText(rich);
    setContent(kept, false);
    text().setMaximumBlockCount(most);
    text().setUndoRedoEnabled(m_isUndoEnabled && most == 0);
    text().setModified(isModified);
}

bool QtEditArea2::doIsRichText() { return m_isRich; }

void QtEditArea2::doSetMarkup(const std::wstring& markup)
{
    if (!m_isRich) {
        change(toQString(markup));
        return;
    }
    settle();
    const QtProgramScope scope;
    setContent(toQString(markup), true);
}

std::wstring QtEditArea2::doGetMarkup()
{
    settle();
    return toStdWString(m_isRich ? toHtml() : wholeText());
}

void QtEditArea2::doSetStyle(TextRange range, const TextStyle& style)
{
    if (!m_isRich) {
        ignored(*this, "a plain area has no styles");
        return;
    }
    settle();
    QTextCharFormat format = VX2Qt(style);
    format.setFontWeight(style.isBold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(style.isItalic);
    format.setFontUnderline(style.isUnderlined);
    ProgramEdit edit(*this, cursorOver(range));
    edit.cursor().mergeCharFormat(format);
}

TextStyle QtEditArea2::doGetStyle(int position)
{
    settle();
    // Qt answers for the character before a cursor.
    QTextCursor cursor = cursorOver({position, 0});
    if (!cursor.atBlockEnd())
        cursor.movePosition(QTextCursor::NextCharacter);
    return Qt2VX(cursor.charFormat());
}

// Helpers -----------------------------------------------------------------------------------------

QTextDocument& QtEditArea2::settled()
{
    settle();
    return text();
}

PlainTextLayout* QtEditArea2::plainLayout() const
{
    return qobject_cast<PlainTextLayout*>(text().documentLayout());
}

int QtEditArea2::toWide(qint64 unit) const { return m_positions->toWide(text(), unit); }

int QtEditArea2::fromWide(qint64 character) const
{
    return m_positions->fromWide(text(), character);
}

QTextCursor QtEditArea2::cursorOver(TextRange range) const
{
    QTextCursor cursor(&text());
    const qint64 start = std::max(range.start, 0);
    cursor.setPosition(fromWide(start));
    cursor.setPosition(fromWide(qint64(range.start) + range.length), QTextCursor::KeepAnchor);
    return cursor;
}

TextRange QtEditArea2::rangeOf(int from, int end) const
{
    const int start = toWide(from);
    return {start, toWide(end) - start};
}

/// Twice, because what comes into sight may be of another height than it was thought to be.
void QtEditArea2::show(const QTextCursor& cursor)
{
    setTextCursor(cursor);
    ensureCursorVisible();
}

/// Lines come one at a time, in great numbers: they are put in together when the turn is over, or
/// when something is asked of the text.
void QtEditArea2::awaitTurn(const QString& lines)
{
    if (!m_isAppendWaiting) {
        m_isAppendWaiting = true;
        m_appended = lines;
        QMetaObject::invokeMethod(
            this, [this] { settle(); }, Qt::QueuedConnection);
        return;
    }
    // As if each had been put behind a text that the one before may have left empty.
    if (!m_appended.isEmpty() || !text().isEmpty())
        m_appended += QLatin1Char('\n');
    m_appended += lines;
}

void QtEditArea2::settle()
{
    if (std::exchange(m_isAppendWaiting, false))
        putBehind(std::exchange(m_appended, QString()));
}

/// The user's cursor stays where it is, also when that is the end, and so does what he reads.
void QtEditArea2::putBehind(const QString& lines)
{
    const QtProgramScope scope;
    QScrollBar& bar = *verticalScrollBar();
    const bool isAtEnd = bar.value() >= bar.maximum();
    const auto top = [this](const QTextCursor& cursor) {
        return static_cast<int>(text().documentLayout()->blockBoundingRect(cursor.block()).top());
    };
    const QTextCursor seen = cursorForPosition({0, 0});
    const int within = bar.value() - top(seen);
    const QTextCursor own = textCursor();
    const int anchor = own.anchor();
    const int position = own.position();
    {
        ProgramEdit edit(*this, QTextCursor(&text()));
        edit.cursor().movePosition(QTextCursor::End);
        if (!text().isEmpty())
            edit.cursor().insertBlock();
        edit.cursor().insertText(lines);
    }
    const int most = text().maximumBlockCount();
    const QTextCursor now = textCursor();
    // Unless lines have gone at the beginning.
    if ((now.position() != position || now.anchor() != anchor)
        && (most == 0 || text().blockCount() < most)) {
        QTextCursor kept(&text());
        kept.setPosition(anchor);
        kept.setPosition(position, QTextCursor::KeepAnchor);
        setTextCursor(kept);
    }
    bar.setValue(isAtEnd ? bar.maximum() : top(seen) + within);
}

void QtEditArea2::change(const QString& text)
{
    settle();
    const QtProgramScope scope;
    const QString plain = withPlainLineEnds(text);
    if (plain.size() != m_positions->length() || plain != wholeText())
        setContent(plain, false);
}

void QtEditArea2::setContent(const QString& text, bool isMarkup)
{
    m_pasting.reset();
    withdrawSuggestions();
    m_margin->clearMarks();
    m_isGroupBegun = false;
    if (isMarkup)
        setHtml(text);
    else
        setPlainText(text);
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
}

QString QtEditArea2::wholeText() const
{
    if (m_isRich)
        return toPlainText();
    // Which would answer other blanks for some.
    QString whole = text().toRawText();
    whole.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    return whole;
}

void QtEditArea2::adopt(QTextDocument* document)
{
    QTextDocument* const former = &text();
    const bool isOwn = former->parent() == this; // else it is Qt's, and deleted by that
    former->disconnect(this);
    m_pasting.reset();
    withdrawSuggestions();
    m_margin->clearMarks();
    setExtraSelections({});
    document->documentLayout()->setPaintDevice(viewport());
    setDocument(document);
    if (isOwn)
        delete former;
    connectDocument();
    applyFont();
    highlightCurrentLine();
}

void QtEditArea2::connectDocument()
{
    connect(&text(), &QTextDocument::contentsChange, this, &QtEditArea2::slotContentsChange);
    connect(&text(), &QTextDocument::contentsChanged, this, &QtEditArea2::slotContentsChanged);
    connect(&text(), &QTextDocument::modificationChanged, this,
            &QtEditArea2::slotModificationChanged);
    connect(&text(), &QTextDocument::blockCountChanged, this, &QtEditArea2::slotBlockCountChanged);
    if (const PlainTextLayout* const layout = plainLayout())
        connect(layout, &PlainTextLayout::changing, m_coloring, &TextColoring::change);
    m_positions->reset(text());
}

} // namespace VOXI
