#pragma once

#include "voxi2/kernel/actionexclusion.h"
#include "voxi2/kernel/shortcut.h"
#include "voxi2/kernel/vxactionevents2.h"
#include "voxi2/kernel/vxobject2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"
#include "voxi_util/icon.h"
#include "voxi_util/vxstringlist.h"

#include <string>

namespace VOXI {

class VXActionGroup2;
class VXWidget2;

struct VXAction2Emitters : TROV::EmittersTable<VXObject2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(std::string)> setAccelerator{*this};
    TROV::Request<void(VXStringList)> setAccelerators{*this};
    TROV::Request<void(bool)> setCheckable{*this};
    TROV::Request<void(bool)> setChecked{*this};
    TROV::Request<void(bool)> setEnabled{*this};
    TROV::Request<void(Icon)> setIcon{*this};
    TROV::Request<void(std::string)> setLabel{*this};
    TROV::Request<void(std::wstring)> setLabelU{*this};
    TROV::Request<void(std::string)> setStatusTip{*this};
    TROV::Request<void(std::string)> setToolTip{*this};
    TROV::Request<void(std::wstring)> setToolTipU{*this};
    TROV::Request<void(bool)> setVisible{*this};
    TROV::Request<std::string()> getAccelerator{*this};
    TROV::Request<VXStringList()> getAccelerators{*this};
    TROV::Request<bool()> isCheckable{*this};
    TROV::Request<bool()> isChecked{*this};
    TROV::Request<bool()> isEnabled{*this};
    TROV::Request<Icon()> getIcon{*this};
    TROV::Request<std::string()> getLabel{*this};
    TROV::Request<std::string()> getStatusTip{*this};
    TROV::Request<std::string()> getToolTip{*this};
    TROV::Request<bool()> isVisible{*this};
    TROV::Request<void(bool)> toggle{*this};
    TROV::Request<void()> trigger{*this};
    TROV::Request<void(std::wstring)> setStatusTipU{*this};
    TROV::Request<void(bool)> setSeparator{*this};
    TROV::Request<void(ShortcutContext)> setShortcutContext{*this};
    TROV::Request<void(bool)> setAutoRepeat{*this};
    TROV::Request<void(unsigned, ActionExclusion)> setGroup{*this};
    TROV::Request<void(VXWidget2*)> attachTo{*this};
    TROV::Request<void(VXWidget2*)> detachFrom{*this};
    TROV::Request<std::wstring()> getLabelU{*this};
    TROV::Request<std::wstring()> getStatusTipU{*this};
    TROV::Request<std::wstring()> getToolTipU{*this};
    TROV::Request<bool()> isSeparator{*this};
    TROV::Request<ShortcutContext()> getShortcutContext{*this};
    TROV::Request<bool()> isAutoRepeat{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXActionTriggerEvent2&)> triggered{*this};
    TROV::Event<void(const VXActionToggleEvent2&)> toggled{*this};
    TROV::Event<void(const VXActionAmbiguityEvent2&)> ambiguous{*this};
};

/// One command, which menus, tool bars and buttons show alike.
///
/// Accelerators are written in portable notation: `Ctrl+S`, `F5`, `Ctrl+K, Ctrl+C` for two strokes.
/// They work once the action is in a menu or tool bar of the window, or attached to a widget.
class VOXI2_EXPORT VXAction2 : public VXObject2
{
public:
    using ToolkitClass = VXAction2;

    explicit VXAction2(VXObject2* parent = nullptr);
    explicit VXAction2(const AnyText& label, VXObject2* parent = nullptr);
    ~VXAction2() override;

    /// An ampersand makes the character after it the mnemonic in menus.
    void setLabel(const AnyText& label);
    /// In the process's encoding; what Latin-1 does not have becomes a question mark.
    std::string label() const;
    std::wstring labelU() const;

    void setIcon(const Icon& icon);
    /// The icon last set.
    Icon icon() const;

    /// Text that is no accelerator is ignored, an empty one too: `clearAccelerators` takes them
    /// away.
    void setAccelerator(const std::string& accelerator);
    /// Replaces all accelerators; texts that are none are left out.
    void setAccelerators(const VXStringList& accelerators);
    void clearAccelerators();
    /// The first accelerator; empty when there is none.
    std::string accelerator() const;
    VXStringList accelerators() const;
    /// Where the accelerators work; in the window when it was not set.
    void setShortcutContext(ShortcutContext context);
    ShortcutContext shortcutContext() const;
    /// Whether an accelerator that is held down triggers again and again, as it does at first.
    void setAutoRepeat(bool repeat);
    bool isAutoRepeat() const;

    /// Without one the label is shown.
    void setToolTip(const AnyText& text);
    std::string toolTip() const;
    std::wstring toolTipU() const;
    /// What the window's status bar shows while the pointer is on the action.
    void setStatusTip(const AnyText& text);
    std::string statusTip() const;
    std::wstring statusTipU() const;

    /// A disabled action cannot be triggered. A hidden one counts as disabled, and disabling it
    /// while it is hidden has no effect.
    void setEnabled(bool enabled);
    bool isEnabled() const;
    void setVisible(bool visible);
    bool isVisible() const;

    /// Whether triggering switches the action between checked and not.
    void setCheckable(bool checkable);
    bool isCheckable() const;
    void setChecked(bool checked);
    bool isChecked() const;

    /// A separator is shown as a line, or in a menu as a heading if it has a label.
    void setSeparator(bool separator);
    bool isSeparator() const;

    /// The group that the action is in; null for none.
    VXActionGroup2* group() const;

    /// Makes the accelerators work in a widget that does not show the action. Dead widgets are
    /// ignored.
    void attachTo(VXWidget2* widget);
    /// Ends that; takes the action out of a menu or tool bar as well.
    void detachFrom(VXWidget2* widget);

    /// Triggers the action as its user would; the events are sent.
    void imitateTrigger();
    /// Changes the checked state as the user would; the event is sent.
    void imitateToggle(bool checked);

    // Events

    /// Triggered in a menu, tool bar or button, by accelerator or `imitateTrigger`.
    TROV::Signal<void(const VXActionTriggerEvent2&)> triggered() const
    {
        return m_emitters.triggered.signal();
    }
    /// The checked state changed; not sent for `setChecked`.
    TROV::Signal<void(const VXActionToggleEvent2&)> toggled() const
    {
        return m_emitters.toggled.signal();
    }
    /// An accelerator was pressed that is not the only one of its kind. When nobody listens, the
    /// log has a line about it.
    TROV::Signal<void(const VXActionAmbiguityEvent2&)> ambiguous() const
    {
        return m_emitters.ambiguous.signal();
    }

    /// For back ends.
    VXAction2Emitters* actionEmitters() noexcept { return &m_emitters; }

private:
    friend class VXActionGroup2;

    VXAction2Emitters m_emitters;
    unsigned m_group = 0; // guarded by the object lock
};

} // namespace VOXI
