#pragma once

#include "voxi2/controls/vxmenuevents2.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <map>
#include <string>

namespace VOXI {

class VXMenu2;

struct VXMenu2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void()> clear{*this};
    TROV::Request<void(VXMenu2*)> digAccessComplete{*this};
    TROV::Request<void()> digAccessFailed{*this};
    TROV::Request<void(bool)> setIsDigMenu{*this};
    TROV::Request<void(VXAction2*)> addMenuItem{*this};
    TROV::Request<void(std::string, VXMenu2*)> addSubMenu{*this};
    TROV::Request<void()> addSeparator{*this};
    TROV::Request<void(double, double)> popup{*this};
    TROV::Request<void(bool)> setActionEnabled{*this};
    TROV::Request<void(std::wstring, VXMenu2*)> addSubMenuU{*this};
    TROV::Request<void(VXAction2*)> removeMenuItem{*this};
    TROV::Request<void(VXMenu2*)> removeSubMenu{*this};
    TROV::Request<bool()> isDigMenu{*this};
    TROV::Request<bool()> isActionEnabled{*this};
    TROV::Request<std::wstring()> getTitleU{*this};
    TROV::Request<int()> count{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXMenuEvent2&)> aboutToShow{*this};
};

/// A menu: in a menu bar, inside another menu, on a tool button, or popped up at a position.
///
/// A menu shows actions and sub-menus; it does not own those that it is given. What was made with
/// the menu as its parent belongs to it, as with all objects.
///
/// **Dig menus** are filled anew each time they open. While `aboutToShow()` is unanswered such a
/// menu shows nothing; the handler adds the items and then calls `digComplete`, or `digFailed` when
/// there are none to be had. It may do so at once, or later and from any thread:
///
///     recent->setDigMenu(true);
///     recent->aboutToShow().connect(this, [=](const VXMenuEvent2&) {
///         recent->destroyItems();
///         for (const std::string& file : recentFiles())
///             recent->addAction(file);
///         recent->digComplete(fileMenu);
///     });
class VOXI2_EXPORT VXMenu2 : public VXWidget2
{
public:
    using ToolkitClass = VXMenu2;

    explicit VXMenu2(VXObject2* parent = nullptr);
    ~VXMenu2() override;

    // Content

    /// Appends the action; one that the menu shows already moves to its end. Null and dead ones are
    /// ignored.
    void addAction(VXAction2* action);
    /// Appends a new action that belongs to the menu; null if the menu has ended, which it may do
    /// while a worker waits for the action.
    VXAction2* addAction(const AnyText& label);
    /// Appends a menu under that title; an ampersand makes the character after it the mnemonic. A
    /// menu cannot hold itself, nor one that holds it. Null and dead ones are ignored.
    void addMenu(const AnyText& title, VXMenu2* menu);
    void addSeparator();
    /// Takes the action out of the menu; it stays alive.
    void removeAction(VXAction2* action);
    void removeMenu(VXMenu2* menu);
    /// Empties the menu. Actions and sub-menus stay alive, also those that belong to the menu.
    void clear();
    /// Empties the menu and destroys the actions and menus that belong to it.
    void destroyItems();
    /// How many actions, sub-menus and separators the menu shows.
    int count() const;

    /// The text of the menu's entry where it was added last.
    std::wstring titleU() const;
    /// Enables or disables the menu's own entry in the menus and bars that hold it.
    void setActionEnabled(bool enabled);
    bool isActionEnabled() const;

    // Opening

    /// Opens the menu at a position on the screen, in whole pixels: fractions are cut off, what is
    /// no number counts as 0. A position outside the screen is moved onto it. A menu that is open
    /// is closed first.
    void popup(double x, double y);
    void popup(const VXPoint<int>& globalPosition);
    /// Makes this the context menu of the widget: it opens where the user asks for one, instead of
    /// the widget's own. A menu can serve many widgets.
    void setContextMenuOf(VXWidget2* widget);
    /// Ends what `setContextMenuOf` began.
    void unsetContextMenuOf(VXWidget2* widget);

    // Filling on demand

    /// A dig menu is cleared each time it is about to be shown, and waits for `digComplete` or
    /// `digFailed` until it shows more than one pixel.
    void setDigMenu(bool dig);
    bool isDigMenu() const;
    /// Answers `aboutToShow()`: the items are in place, the menu is given its size and its
    /// position. `parent` is the menu from whose entry it opened, null for none; that menu then
    /// leaves it open while the pointer travels to it. When the menu has been closed meanwhile, or
    /// another entry of `parent` is the active one by now, nothing is shown.
    void digComplete(VXMenu2* parent = nullptr);
    /// Answers `aboutToShow()`: there is nothing to show; the menu is cleared and closed.
    void digFailed();

    // Events

    /// The menu is about to be shown. It is sent once; the next one comes only after `digComplete`
    /// or `digFailed` has answered it, also for a menu that is no dig menu.
    TROV::Signal<void(const VXMenuEvent2&)> aboutToShow() const
    {
        return m_emitters.aboutToShow.signal();
    }

private:
    VXMenu2Emitters m_emitters;
    std::map<unsigned, TROV::ConnectionHandle> m_contextMenus; // by the widget's id
};

} // namespace VOXI
