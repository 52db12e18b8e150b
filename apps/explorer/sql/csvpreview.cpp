#include "sql/csvfile.h"
#include "sql/csvimport.h"
#include "sql/text.h"
#include "sql/value.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace SQL {

namespace {

constexpr std::size_t SampledRows = 1000;
constexpr std::size_t LargestSample = 4U << 20; // in bytes

using Rows = std::vector<std::vector<std::string>>;

Rows sample(const std::filesystem::path& file, char separator)
{
    CsvFile csv(file, separator);
    Rows rows;
    std::vector<CsvFile::Field> fields;
    std::size_t size = 0;
    while (rows.size() < SampledRows && size < LargestSample && csv.next(fields)) {
        auto& row = rows.emplace_back();
        for (CsvFile::Field& field : fields) {
            size += field.text.size();
            row.push_back(std::move(field.text));
        }
    }
    return rows;
}

/// The separator by which most rows have as many fields as the first one, and more than one.
char guessSeparator(const std::filesystem::path& file)
{
    char best = ',';
    std::pair<std::size_t, std::size_t> bestScore;
    for (char separator : {',', ';', '\t', '|'}) {
        const Rows rows = sample(file, separator);
        if (rows.empty() || rows[0].size() < 2)
            continue;
        const auto alike = static_cast<std::size_t>(
            std::count_if(rows.begin(), rows.end(), [&](const std::vector<std::string>& row) {
                return row.size() == rows[0].size();
            }));
        const std::pair score(alike, rows[0].size());
        if (score > bestScore) {
            best = separator;
            bestScore = score;
        }
    }
    return best;
}

/// Whether names could stand there: different, none empty and none a number.
bool looksLikeHeader(const std::vector<std::string>& row)
{
    return std::set<std::string>(row.begin(), row.end()).size() == row.size()
           && std::none_of(row.begin(), row.end(), [](const std::string& field) {
                  return field.empty() || numberFromText(field).has_value();
              });
}

/// A number that would lose something as such is none: "007", "+49 ...".
bool isNumber(const std::string& field, bool& isWhole)
{
    const auto number = numberFromText(field);
    if (!number)
        return false;
    const std::string_view digits = std::string_view(field).substr(field.starts_with('-') ? 1 : 0);
    const bool hasZeros = digits.size() > 1 && digits[0] == '0' && digits[1] != '.';
    isWhole = std::holds_alternative<std::int64_t>(*number);
    const bool isLong = !isWhole && digits.find_first_of(".eE") == std::string_view::npos;
    return !hasZeros && !isLong && !digits.starts_with('+');
}

std::string guessType(const Rows& rows, std::size_t column)
{
    bool isWhole = true;
    bool isAny = false;
    for (const auto& row : rows) {
        if (column >= row.size() || row[column].empty())
            continue;
        bool isThisWhole = false;
        if (!isNumber(row[column], isThisWhole))
            return "TEXT";
        isWhole &= isThisWhole;
        isAny = true;
    }
    return !isAny ? "TEXT" : isWhole ? "INTEGER" : "REAL";
}

/// Names of columns are alike in capitals or not.
std::string uniqueName(std::string name, std::size_t column, std::set<std::string>& used)
{
    std::replace(name.begin(), name.end(), '\0', ' ');
    name = repairedUtf8(name);
    if (name.empty())
        name = "column" + std::to_string(column + 1);
    const auto inSmall = [](std::string text) {
        for (char& each : text)
            each = each >= 'A' && each <= 'Z' ? char(each + 32) : each;
        return text;
    };
    std::string unique = name;
    for (int number = 2; !used.insert(inSmall(unique)).second; ++number)
        unique = name + "_" + std::to_string(number);
    return unique;
}

} // namespace

CsvPreview previewCsv(const std::filesystem::path& file, std::size_t rows,
                      const std::optional<CsvFormat>& format)
{
    CsvPreview preview;
    preview.format.separator = format ? format->separator : guessSeparator(file);
    Rows all = sample(file, preview.format.separator);
    preview.format.hasHeader = format ? format->hasHeader : !all.empty() && looksLikeHeader(all[0]);

    std::vector<std::string> header;
    std::size_t width = all.empty() ? 0 : all[0].size();
    if (preview.format.hasHeader && !all.empty()) {
        header = std::move(all[0]);
        all.erase(all.begin());
    }
    std::set<std::string> used;
    for (std::size_t column = 0; column < width; ++column)
        preview.columns.push_back(
            {uniqueName(column < header.size() ? header[column] : "", column, used),
             guessType(all, column)});
    all.resize(std::min(all.size(), rows));
    preview.rows = std::move(all);
    return preview;
}

} // namespace SQL
