#include "sqlcolors.h"

#include "sql/tokens.h"

#include <string>
#include <vector>

namespace explorer {

using namespace VOXI;

namespace {

TextStyle styleOf(SQL::TokenKind kind)
{
    switch (kind) {
    case SQL::TokenKind::Keyword:
        return {.color = Color(30, 80, 170), .isBold = true};
    case SQL::TokenKind::String:
        return {.color = Color(30, 125, 60)};
    case SQL::TokenKind::Number:
        return {.color = Color(160, 80, 20)};
    case SQL::TokenKind::Comment:
        return {.color = Color(130, 136, 146), .isItalic = true};
    case SQL::TokenKind::Variable:
        return {.color = Color(140, 50, 140)};
    case SQL::TokenKind::Identifier:
    case SQL::TokenKind::Operator:
        break;
    }
    return {};
}

/// What the lines before the one of that number have left open.
SQL::LineState stateBefore(const VXEditArea2& area, int line)
{
    const int end = area.positionOf({line, 0});
    return SQL::tokenize(std::wstring_view(area.textOf({0, end}))).state;
}

} // namespace

void colorAsSql(VXEditArea2* area)
{
    area->coloringWanted().connect(area, [area](const VXEditAreaColoringEvent2& event) {
        const SQL::LineState before = stateBefore(*area, event.firstLine());
        std::vector<TextSpan> spans;
        for (const SQL::Token& token :
             SQL::tokenize(std::wstring_view(event.text()), before).tokens) {
            const TextStyle style = styleOf(token.kind);
            if (style != TextStyle())
                spans.push_back(
                    {{static_cast<int>(token.begin), static_cast<int>(token.length)}, style});
        }
        event.answer(spans);
    });
}

} // namespace explorer
