#pragma once

#include "voxi2/controls/vxtextevents2.h"
#include "voxi2/kernel/alignment.h"
#include "voxi2/kernel/itemview.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <string>

namespace VOXI {

struct VXText2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(std::string)> setText{*this};
    TROV::Request<void(std::wstring)> setTextU{*this};
    TROV::Request<void(Alignment)> setAlignment{*this};
    TROV::Request<void(bool)> setWordWrap{*this};
    TROV::Request<void(VXWidget2*)> setBuddy{*this};
    TROV::Request<void(bool)> setSelectable{*this};
    TROV::Request<void(bool)> setRichText{*this};
    TROV::Request<std::string()> getText{*this};
    TROV::Request<std::wstring()> getTextU{*this};
    TROV::Request<Alignment()> getAlignment{*this};
    TROV::Request<bool()> getWordWrap{*this};
    TROV::Request<VXWidget2*()> getBuddy{*this};
    TROV::Request<bool()> isSelectable{*this};
    TROV::Request<bool()> isRichText{*this};
    TROV::Request<void(TextElideMode)> setElideMode{*this};
    TROV::Request<TextElideMode()> getElideMode{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXTextLinkEvent2&)> linkActivated{*this};
};

/// A text that the user reads but does not edit.
class VOXI2_EXPORT VXText2 : public VXWidget2
{
public:
    using ToolkitClass = VXText2;

    explicit VXText2(VXObject2* parent = nullptr);
    explicit VXText2(const AnyText& text, VXObject2* parent = nullptr);
    ~VXText2() override;

    void setText(const AnyText& text);
    std::string text() const;
    std::wstring textU() const;

    void setAlignment(Alignment alignment);
    Alignment alignment() const;
    void setWordWrap(bool wrap);
    bool wordWrap() const;

    /// The widget that gets the focus when the text's mnemonic is pressed; null takes it away, a
    /// dead one is ignored.
    void setBuddy(VXWidget2* buddy);
    VXWidget2* buddy() const;

    /// Whether the user may select and copy the text.
    void setSelectable(bool selectable);
    bool isSelectable() const;

    /// Whether markup in the text is shown as what it means; off by default, so that a text from
    /// elsewhere is shown as it is.
    void setRichText(bool rich);
    bool isRichText() const;

    /// Where a text that has no room is shortened; none at first. Only a plain one that is neither
    /// wrapped nor selectable is: then the label may be made narrower than its text.
    void setElideMode(TextElideMode mode);
    TextElideMode elideMode() const;

    // Events

    /// The user has clicked a link of a rich text, or pressed Return on it.
    TROV::Signal<void(const VXTextLinkEvent2&)> linkActivated() const
    {
        return m_emitters.linkActivated.signal();
    }

private:
    VXText2Emitters m_emitters;
};

} // namespace VOXI
