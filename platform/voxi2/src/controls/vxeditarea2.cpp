#include "voxi2/controls/vxeditarea2.h"

#include "voxi2/kernel/vxhandle.h"

#include <utility>

namespace VOXI {

VXEditArea2::VXEditArea2(VXObject2* parent) : VXEditArea2(AnyText(), parent) {}

VXEditArea2::VXEditArea2(const AnyText& text, VXObject2* parent)
    : VXAbstractEdit2(parent),
      m_emitters(VXAbstractEdit2::m_emitters)
{
    createPeer(text, &VXEditArea2::setText, &VXFactory2::createEditArea2, this, &m_emitters,
               parent);
}

VXEditArea2::~VXEditArea2() { retire(); }

void VXEditArea2::append(const AnyText& lines)
{
    lines.passTo(m_emitters.append, m_emitters.appendU);
}

void VXEditArea2::replace(const TextRange& range, const AnyText& text)
{
    text.passWideTo([&](const std::wstring& wide) { m_emitters.replace(range, wide); });
}

std::wstring VXEditArea2::textOf(const TextRange& range) const
{
    return m_emitters.getTextOf(range);
}

int VXEditArea2::length() const { return m_emitters.getLength(); }
int VXEditArea2::lineCount() const { return m_emitters.getLineCount(); }
std::wstring VXEditArea2::line(int line) const { return m_emitters.getLine(line); }
void VXEditArea2::setMaximumLineCount(int count) { m_emitters.setMaximumLineCount(count); }
int VXEditArea2::maximumLineCount() const { return m_emitters.getMaximumLineCount(); }
void VXEditArea2::setModified(bool modified) { m_emitters.setModified(modified); }
bool VXEditArea2::isModified() const { return m_emitters.isModified(); }
void VXEditArea2::setRichText(bool rich) { m_emitters.setRichText(rich); }
bool VXEditArea2::isRichText() const { return m_emitters.isRichText(); }
void VXEditArea2::setMarkup(const AnyText& markup) { markup.passWideTo(m_emitters.setMarkup); }
std::wstring VXEditArea2::markup() const { return m_emitters.getMarkup(); }

void VXEditArea2::setStyle(const TextRange& range, const TextStyle& style)
{
    m_emitters.setStyle(range, style);
}

TextStyle VXEditArea2::styleAt(int position) const { return m_emitters.getStyle(position); }

void VXEditArea2::setWrap(TextWrap wrap) { m_emitters.setWrap(wrap); }
TextWrap VXEditArea2::wrap() const { return m_emitters.getWrap(); }
void VXEditArea2::setTabWidth(int blanks) { m_emitters.setTabWidth(blanks); }
int VXEditArea2::tabWidth() const { return m_emitters.getTabWidth(); }
void VXEditArea2::setZoom(int percent) { m_emitters.setZoom(percent); }
int VXEditArea2::zoom() const { return m_emitters.getZoom(); }

void VXEditArea2::setLineNumbersVisible(bool visible) { m_emitters.setLineNumbersVisible(visible); }

bool VXEditArea2::areLineNumbersVisible() const { return m_emitters.areLineNumbersVisible(); }

void VXEditArea2::setCurrentLineHighlighted(bool highlighted)
{
    m_emitters.setCurrentLineHighlighted(highlighted);
}

bool VXEditArea2::isCurrentLineHighlighted() const { return m_emitters.isCurrentLineHighlighted(); }

void VXEditArea2::setCursorPlace(const TextPlace& place) { m_emitters.setCursorPlace(place); }
TextPlace VXEditArea2::cursorPlace() const { return m_emitters.getCursorPlace(); }
TextPlace VXEditArea2::placeOf(int position) const { return m_emitters.getPlaceOf(position); }
int VXEditArea2::positionOf(const TextPlace& place) const
{
    return m_emitters.getPositionOf(place);
}

VXRect<int> VXEditArea2::cursorRect(int position) const
{
    return m_emitters.getPositionRect(position);
}
void VXEditArea2::setTopLine(int line) { m_emitters.setTopLine(line); }
int VXEditArea2::topLine() const { return m_emitters.getTopLine(); }
void VXEditArea2::scrollTo(int position) { m_emitters.scrollTo(position); }

bool VXEditArea2::find(const TextSearch& search) { return m_emitters.find(search); }

std::optional<TextRange> VXEditArea2::findFrom(const TextSearch& search, int position) const
{
    return m_emitters.findFrom(search, position);
}

bool VXEditArea2::replaceFound(const TextSearch& search, const AnyText& text)
{
    return m_emitters.replaceFound(search, text.toWide());
}

int VXEditArea2::replaceAll(const TextSearch& search, const AnyText& text)
{
    return m_emitters.replaceAll(search, text.toWide());
}

void VXEditArea2::setUndoEnabled(bool enabled) { m_emitters.setUndoEnabled(enabled); }
bool VXEditArea2::isUndoEnabled() const { return m_emitters.isUndoEnabled(); }
void VXEditArea2::beginUndoGroup() { m_emitters.beginUndoGroup(); }
void VXEditArea2::endUndoGroup() { m_emitters.endUndoGroup(); }

void VXEditArea2::setMarksVisible(bool visible) { m_emitters.setMarksVisible(visible); }
bool VXEditArea2::areMarksVisible() const { return m_emitters.areMarksVisible(); }
void VXEditArea2::setMark(const TextMark& mark) { m_emitters.setMark(mark); }
void VXEditArea2::removeMark(unsigned uid) { m_emitters.removeMark(uid); }
void VXEditArea2::clearMarks() { m_emitters.clearMarks(); }
std::vector<TextMark> VXEditArea2::marks() const { return m_emitters.getMarks(); }

void VXEditArea2::recolor() { m_emitters.recolor(); }

void VXEditArea2::answerColoring(unsigned query, const std::vector<TextSpan>& spans)
{
    m_emitters.answerColoring(query, spans);
}

void VXEditArea2::setSuggestionLength(int letters) { m_emitters.setSuggestionLength(letters); }
int VXEditArea2::suggestionLength() const { return m_emitters.getSuggestionLength(); }

void VXEditArea2::suggest(const TextRange& range, const std::vector<TextSuggestion>& suggestions)
{
    m_emitters.suggest(range, suggestions);
}

std::vector<TextSuggestion> VXEditArea2::suggestions() const { return m_emitters.getSuggestions(); }

void VXEditArea2::answerSuggestions(unsigned query, const TextRange& range,
                                    const std::vector<TextSuggestion>& suggestions)
{
    m_emitters.answerSuggestions(query, range, suggestions);
}

void VXEditArea2::imitateSuggestionKey() { m_emitters.askForSuggestions(); }
void VXEditArea2::imitateSuggestion(int index) { m_emitters.takeSuggestion(index); }
void VXEditArea2::imitateCommand(TextCommand command) { m_emitters.command(command); }
void VXEditArea2::imitateMarginClick(int line) { m_emitters.clickMargin(line); }

VXEditAreaColoringEvent2::VXEditAreaColoringEvent2(Body body)
    : m_body(std::make_shared<const Body>(std::move(body)))
{}

void VXEditAreaColoringEvent2::answer(const std::vector<TextSpan>& spans) const
{
    const VXObjectDataLocker lock;
    if (auto* const area = dynamic_cast<VXEditArea2*>(VXObject::objectById(m_body->area)))
        area->answerColoring(m_body->query, spans);
}

VXEditAreaSuggestEvent2::VXEditAreaSuggestEvent2(Body body)
    : m_body(std::make_shared<const Body>(std::move(body)))
{}

VXEditArea2* VXEditAreaSuggestEvent2::area() const
{
    const VXObjectDataLocker lock;
    return dynamic_cast<VXEditArea2*>(VXObject::objectById(m_body->area));
}

void VXEditAreaSuggestEvent2::answer(const std::vector<TextSuggestion>& suggestions) const
{
    answer(word(), suggestions);
}

void VXEditAreaSuggestEvent2::answer(const TextRange& range,
                                     const std::vector<TextSuggestion>& suggestions) const
{
    const VXObjectDataLocker lock;
    if (auto* const asked = area())
        asked->answerSuggestions(m_body->query, range, suggestions);
}

} // namespace VOXI
