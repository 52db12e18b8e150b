#pragma once

#include "voxi2/controls/textareavalues.h"
#include "voxi2/kernel/vxevent2.h"
#include "voxi2/voxi2_export.h"

#include <memory>
#include <string>
#include <vector>

namespace VOXI {

class VXEditArea2;

/// What all events of an edit area have.
template <class... Values>
class VXEditAreaEventOf2 : public VXEvent2<VXEditArea2, Values...>
{
public:
    using VXEvent2<VXEditArea2, Values...>::VXEvent2;
    VXEditArea2* area() const noexcept { return this->sender(); }
};

/// The user has changed the text: so many characters at a place have made way for others. Who does
/// the same to a copy of the text has what the area shows.
class VXEditAreaTextEvent2 : public VXEditAreaEventOf2<int, int, std::wstring>
{
public:
    using VXEditAreaEventOf2::VXEditAreaEventOf2;
    int position() const noexcept { return value<0>(); }
    int removed() const noexcept { return value<1>(); }
    const std::wstring& added() const noexcept { return value<2>(); }
};

/// The text has become another than the one that was set or saved, or that one again, by its user.
class VXEditAreaModifiedEvent2 : public VXEditAreaEventOf2<bool>
{
public:
    using VXEditAreaEventOf2::VXEditAreaEventOf2;
    bool isModified() const noexcept { return value(); }
};

/// The user has clicked the margin.
class VXEditAreaMarginEvent2 : public VXEditAreaEventOf2<int, unsigned>
{
public:
    using VXEditAreaEventOf2::VXEditAreaEventOf2;
    int line() const noexcept { return value<0>(); }
    /// The mark that was clicked; 0 when there is none.
    unsigned markUid() const noexcept { return value<1>(); }
};

/// The user has scrolled up or down.
class VXEditAreaScrollEvent2 : public VXEditAreaEventOf2<int>
{
public:
    using VXEditAreaEventOf2::VXEditAreaEventOf2;
    /// The line at the upper edge.
    int topLine() const noexcept { return value(); }
};

/// The user has changed the size of the text.
class VXEditAreaZoomEvent2 : public VXEditAreaEventOf2<int>
{
public:
    using VXEditAreaEventOf2::VXEditAreaEventOf2;
    int percent() const noexcept { return value(); }
};

/// How are these lines coloured? A value, copied cheaply: answer when you know, on any thread.
class VOXI2_EXPORT VXEditAreaColoringEvent2
{
public:
    struct Body
    {
        unsigned area = 0;  ///< the id of who asks
        unsigned query = 0; ///< its number for that
        int firstLine = 0;
        std::wstring text{};
    };

    explicit VXEditAreaColoringEvent2(Body body);

    /// Whole lines, as they were when it was asked. Of those that are longer than a quarter of a
    /// million characters, the beginning.
    const std::wstring& text() const noexcept { return m_body->text; }
    /// The number of their first one, then.
    int firstLine() const noexcept { return m_body->firstLine; }

    /// Positions count from the beginning of `text()`; of spans that overlap the later one counts.
    /// What the user has typed over meanwhile is left out and asked for again, what he has moved is
    /// coloured where it is now. Only the first answer counts, and none to a question that has been
    /// put anew.
    void answer(const std::vector<TextSpan>& spans) const;

    const Body& body() const noexcept { return *m_body; }

private:
    std::shared_ptr<const Body> m_body;
};

/// The user has taken what was suggested. That the text has changed is told by `textEdited`.
class VXEditAreaSuggestionEvent2 : public VXEditAreaEventOf2<int, std::wstring>
{
public:
    using VXEditAreaEventOf2::VXEditAreaEventOf2;
    /// Which one, as they were given.
    int index() const noexcept { return value<0>(); }
    const std::wstring& text() const noexcept { return value<1>(); }
};

/// What may stand here? A value, copied cheaply: answer when you know, on any thread.
class VOXI2_EXPORT VXEditAreaSuggestEvent2
{
public:
    struct Body
    {
        unsigned area = 0;  ///< the id of who asks
        unsigned query = 0; ///< its number for that
        int position = 0;
        TextRange word{};
        bool isTyping = false;
    };

    explicit VXEditAreaSuggestEvent2(Body body);

    /// The area, as long as it lives; its text is that of the question only in a handler on the
    /// toolkit's thread.
    VXEditArea2* area() const;
    /// Of the cursor.
    int position() const noexcept { return m_body->position; }
    /// The letters, digits and underscores before the cursor, which may be none.
    const TextRange& word() const noexcept { return m_body->word; }
    /// Whether the user just goes on typing; otherwise he has asked for suggestions by a key.
    bool isTyping() const noexcept { return m_body->isTyping; }

    /// Offers these in the place of `word()`; see `VXEditArea2::suggest`. Without any, nothing is
    /// offered any more. Only the first answer counts, and none when the user has typed or gone
    /// elsewhere meanwhile.
    void answer(const std::vector<TextSuggestion>& suggestions) const;
    /// The same in the place of another part, such as a name with quotes.
    void answer(const TextRange& range, const std::vector<TextSuggestion>& suggestions) const;

    const Body& body() const noexcept { return *m_body; }

private:
    std::shared_ptr<const Body> m_body;
};

} // namespace VOXI
