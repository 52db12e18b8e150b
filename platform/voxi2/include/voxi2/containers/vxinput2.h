#pragma once

#include "voxi2/controls/texteditvalues.h"
#include "voxi2/controls/textvalidator.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace VOXI {

class VXObject2;
struct BuiltInput;

/// Asks the user for one line.
///
///     if (const auto name = VXInput2::askText(window, "&Name of the layer:", layer.name()))
///         layer.rename(*name);
///
///     const auto colour = VXInput2{.text = "Sort by:", .choices = {L"name",
///     L"date"}}.exec(window);
///
/// The answer is nothing when the user cancels, and without a back end or for a parent that has
/// ended or ends meanwhile. A value: it may be asked many times, from any thread. With a parent the
/// dialog stays above the parent's window.
struct VOXI2_EXPORT VXInput2
{
    /// What is asked for, with `&` before the mnemonic.
    KeptText text;
    /// What the line holds at first; selected, so that typing replaces it.
    KeptText value{};
    /// Of the window; empty: "Input", in the user's language.
    KeptText title{};
    /// Other texts cannot be answered.
    TextValidator validator{};
    TextEcho echo = TextEcho::Normal;
    /// A list to choose from; the line shows `value` if that is one of them, else the first.
    std::vector<std::wstring> choices{};
    /// Whether what is not in the list may be typed.
    bool mayBeOther = false;

    using Answer = std::optional<std::wstring>;

    /// Asks and waits for the answer, as `VXAbstractDialog2::exec` does.
    Answer exec(VXObject2* parent = nullptr) const;

    /// Asks, blocking the parent's window (without one: all windows) and returns. `answered` is
    /// called once, on the toolkit's thread, as by `VXMessage2::open`.
    void open(VXObject2* parent, std::function<void(Answer)> answered) const;

    // The usual cases, which wait.

    static Answer askText(VXObject2* parent, const AnyText& text, const AnyText& value = {});
    static Answer askPassword(VXObject2* parent, const AnyText& text);
    static Answer askChoice(VXObject2* parent, const AnyText& text,
                            const std::vector<std::wstring>& choices, const AnyText& value = {});
    /// A number from `least` to `greatest`, with buttons to step it.
    static std::optional<int> askNumber(VXObject2* parent, const AnyText& text, int value,
                                        int least, int greatest);

private:
    BuiltInput make(VXObject2* parent) const;
};

} // namespace VOXI
