#pragma once

#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <string>

namespace VOXI {

struct VXMenuBar2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(std::string, VXMenu2*)> glAddMenu{*this};
    TROV::Request<void(std::wstring, VXMenu2*)> addMenuU{*this};
    TROV::Request<void(VXMenu2*)> removeMenu{*this};
    TROV::Request<void()> clear{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// A row of menu titles, usually at the top of a window: see `VXWindow2::setMenuBar`.
class VOXI2_EXPORT VXMenuBar2 : public VXWidget2
{
public:
    using ToolkitClass = VXMenuBar2;

    explicit VXMenuBar2(VXObject2* parent = nullptr);
    ~VXMenuBar2() override;

    /// Appends the menu under that title; an ampersand makes the character after it the mnemonic.
    /// The bar does not own it. Null and dead ones are ignored.
    void addMenu(const AnyText& title, VXMenu2* menu);
    /// Takes the menu out of the bar; it stays alive.
    void removeMenu(VXMenu2* menu);
    /// Takes all menus out of the bar.
    void clear();

private:
    VXMenuBar2Emitters m_emitters;
};

} // namespace VOXI
