#pragma once

#include "voxi2/kernel/vxevent2.h"

#include <string>

namespace VOXI {

class VXAbstractEdit2;
class VXEdit2;

/// What all events of a line edit have.
template <class... Values>
class VXEditEventOf2 : public VXEvent2<VXEdit2, Values...>
{
public:
    using VXEvent2<VXEdit2, Values...>::VXEvent2;
    VXEdit2* edit() const noexcept { return this->sender(); }
};

/// The user has changed the text: by a key, the clipboard, a suggestion, undo.
class VXEditTextEvent2 : public VXEditEventOf2<std::wstring>
{
public:
    using VXEditEventOf2::VXEditEventOf2;
    const std::wstring& newText() const noexcept { return value(); }
};

/// The user has pressed Return in an acceptable text.
class VXEditReturnEvent2 : public VXEditEventOf2<>
{
public:
    using VXEditEventOf2::VXEditEventOf2;
};

/// The user is done with a text that is acceptable.
class VXEditFinishEvent2 : public VXEditEventOf2<>
{
public:
    using VXEditEventOf2::VXEditEventOf2;
};

/// The user has moved the cursor, by typing as well.
class VXEditCursorEvent2 : public VXEvent2<VXAbstractEdit2, int>
{
public:
    using VXEvent2::VXEvent2;
    VXAbstractEdit2* edit() const noexcept { return sender(); }
    /// In characters of the wide text.
    int newPosition() const noexcept { return value(); }
};

/// The user has selected another part of the text, or none.
class VXEditSelectionEvent2 : public VXEvent2<VXAbstractEdit2>
{
public:
    using VXEvent2::VXEvent2;
    VXAbstractEdit2* edit() const noexcept { return sender(); }
};

} // namespace VOXI
