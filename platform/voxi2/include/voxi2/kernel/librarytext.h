#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace VOXI {

namespace detail {

struct LibraryTextRow
{
    const char* m_english;
    const wchar_t* m_german;
};

/// All that the library says by itself, in each language that it knows. A new text is a row here,
/// a new language a column. `&` stands before the mnemonic, which is another one for each of the
/// answers that may stand beside each other.
inline constexpr LibraryTextRow LibraryTexts[] = {
    {"", L""}, // nothing said

    // Answers, and what else stands on buttons.
    {"&Yes", L"&Ja"},
    {"Yes to &All", L"Ja, &alle"},
    {"&OK", L"&OK"},
    {"&Save", L"&Speichern"},
    {"Save A&ll", L"Alles s&peichern"},
    {"&Retry", L"&Wiederholen"},
    {"&Ignore", L"&Ignorieren"},
    {"&Discard", L"&Verwerfen"},
    {"&No", L"&Nein"},
    {"No &to All", L"Nein, kein&e"},
    {"A&bort", L"Abb&ruch"},
    {"&Close", L"S&chließen"},
    {"Cancel", L"Abbrechen"},
    {"&Cancel", L"Abbre&chen"},
    {"&Apply", L"&Übernehmen"},
    {"&Reset", L"&Zurücksetzen"},
    {"Restore &Defaults", L"Stan&dard wiederherstellen"},
    {"&Help", L"&Hilfe"},
    {"&Open", L"Ö&ffnen"},
    {"&Choose", L"Aus&wählen"},

    // Titles of messages, and what their signs and those of notifications mean.
    {"Message", L"Meldung"},
    {"Input", L"Eingabe"},
    {"Information", L"Information"},
    {"Question", L"Frage"},
    {"Warning", L"Warnung"},
    {"Error", L"Fehler"},
    {"Success", L"Erfolg"},
    {"Close", L"Schließen"},

    // File dialogs.
    {"Look in:", L"Suchen in:"},
    {"File &name:", L"Datei&name:"},
    {"Files of type:", L"Dateityp:"},
    {"Directory:", L"Ordner:"},
    {"All files", L"Alle Dateien"},
    {"%1 does not exist.\nPlease check the name.",
     L"%1 gibt es nicht.\nBitte prüfen Sie den Namen."},
    {"%1 exists already.\nDo you want to replace it?",
     L"%1 gibt es schon.\nSoll es ersetzt werden?"},

    // Views, palettes and properties.
    {"Search", L"Suchen"},
    {"Suggestions", L"Vorschläge"},
    {"Search properties", L"Eigenschaften suchen"},
    {"Property", L"Eigenschaft"},
    {"Value", L"Wert"},
    {"Less", L"Weniger"},
    {"More", L"Mehr"},
    {"Choose", L"Auswählen"},
    {"Edit", L"Bearbeiten"},
    {"A whole number from %1 to %2 is wanted.", L"Eine ganze Zahl von %1 bis %2 wird erwartet."},
    {"A number from %1 to %2 is wanted.", L"Eine Zahl von %1 bis %2 wird erwartet."},
    {"\"true\" or \"false\" is wanted.", L"„true“ oder „false“ wird erwartet."},
    {"That is no choice.", L"Das steht nicht zur Auswahl."},
    {"A colour is wanted, as \"#ff8000\" or \"#ff8000ff\".",
     L"Eine Farbe wird erwartet, etwa „#ff8000“ oder „#ff8000ff“."},
    {"A font is wanted, as \"Sans Serif, 9, bold, italic, underline\".",
     L"Eine Schrift wird erwartet, etwa „Sans Serif, 9, bold, italic, underline“."},
    {"A date is wanted, as \"2026-11-22\".", L"Ein Datum wird erwartet, etwa „2026-11-22“."},
    {"This is no %1.", L"Das ist kein Wert der Art %1."},

    // The menu of a pane.
    {"&Dock", L"&Andocken"},
    {"&Float", L"A&bdocken"},
    {"To the &Left", L"Nach &links"},
    {"To the &Right", L"Nach &rechts"},
    {"To the &Top", L"Nach &oben"},
    {"To the &Bottom", L"Nach &unten"},

    // Pages and scenes.
    {"Back", L"Zurück"},
    {"Forward", L"Vorwärts"},
    {"Home", L"Startseite"},
    {"No document: %1", L"Kein Dokument: %1"},
    {"Invalid buffer format: %1", L"Ungültiger Name eines Puffers: %1"},
    {"No such buffer: %1", L"Kein solcher Puffer: %1"},
    {"This picture needs OpenGL, which is missing here.",
     L"Dieses Bild braucht OpenGL, das hier fehlt."},
};

/// Called, and so named by the compiler, for a text that is not in the table.
void theLibraryTextIsNotInTheTable();

} // namespace detail

/// A text of the library's own, in English: made of a literal, which is looked up in the table of
/// all languages when it is compiled. One that is missing there does not compile.
class LibraryText
{
public:
    consteval LibraryText(const char* english) : m_place(placeOf(english)) {}

    constexpr const char* english() const noexcept { return row().m_english; }
    constexpr const wchar_t* german() const noexcept { return row().m_german; }

private:
    static consteval std::uint16_t placeOf(std::string_view english)
    {
        for (std::size_t i = 0; i < std::size(detail::LibraryTexts); ++i) {
            if (detail::LibraryTexts[i].m_english == english)
                return static_cast<std::uint16_t>(i);
        }
        detail::theLibraryTextIsNotInTheTable();
        return 0;
    }

    constexpr const detail::LibraryTextRow& row() const noexcept
    {
        return detail::LibraryTexts[m_place];
    }

    std::uint16_t m_place;
};

} // namespace VOXI
