#include "celllook.h"

#include "icons.h"
#include "sql/text.h"

#include <variant>

namespace explorer {

using namespace VOXI;

namespace {

constexpr Color Faint{140, 146, 156};
constexpr Color ChangedPaper{255, 240, 196};
constexpr Color InsertedPaper{221, 243, 224};
constexpr Color RejectedPaper{250, 209, 204};

/// On one line: what would begin another, or is no character to be seen, is a blank.
std::wstring onOneLine(std::wstring text)
{
    for (wchar_t& each : text) {
        if (each < L' ' || each == 0x7f)
            each = L' ';
    }
    return text;
}

CellUIData faint(const AnyText& text)
{
    return CellUIData(text.toWide()).setForeground(Faint).setItalic();
}

} // namespace

CellUIData lookOf(const SQL::Cell& cell)
{
    static const CellUIData null = faint("NULL");
    static const CellUIData bytes = faint("");
    static const CellUIData number =
        CellUIData().setAlignment(AlignmentFlag::Right | AlignmentFlag::VCenter);
    if (SQL::isNull(cell.value))
        return null;
    if (std::holds_alternative<SQL::Blob>(cell.value))
        return CellUIData(bytes).setValue("bytes, " + sizeText(cell.size));
    std::wstring text = onOneLine(SQL::wideFromUtf8(SQL::textOf(cell.value)));
    if (std::holds_alternative<std::string>(cell.value))
        return cell.isCut ? CellUIData(text + L"…") : CellUIData(std::move(text));
    return CellUIData(number).setValue(std::move(text));
}

void markChanged(CellUIData& cell) { cell.setBackground(ChangedPaper); }
void markInserted(CellUIData& cell) { cell.setBackground(InsertedPaper); }

/// With a sign, for a selection hides the colour.
CellUIData lookOfRejected(const SQL::Value& value, const std::string& message)
{
    static const Icon sign = icon(Picture::Refused);
    return lookOf({.value = value})
        .setBackground(RejectedPaper)
        .setIcon(sign)
        .setToolTip(SQL::wideFromUtf8(message));
}

CellUIData lookOfHeader(const SQL::ColumnInfo& column)
{
    CellUIData header(onOneLine(SQL::wideFromUtf8(column.name)));
    std::string tip = column.name + (column.type.empty() ? "" : ": " + column.type);
    if (column.primaryKey > 0) {
        header.setIcon(icon(Picture::Key));
        tip += ", primary key";
    }
    if (column.isNotNull)
        tip += ", not NULL";
    if (column.isGenerated)
        tip += ", generated";
    return header.setToolTip(SQL::wideFromUtf8(tip));
}

std::string grouped(std::uint64_t number)
{
    std::string text = std::to_string(number);
    for (int at = static_cast<int>(text.size()) - 3; at > 0; at -= 3)
        text.insert(static_cast<std::size_t>(at), " ");
    return text;
}

std::string sizeText(std::int64_t bytes)
{
    if (bytes < 1024)
        return std::to_string(bytes) + " B";
    if (bytes < 1024 * 1024)
        return std::to_string(bytes / 1024) + " KB";
    return std::to_string(bytes / (1024 * 1024)) + " MB";
}

} // namespace explorer
