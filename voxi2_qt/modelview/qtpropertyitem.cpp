#include "qtpropertyitem.h"

#include "trov/thread.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qthandlerframe.h"
#include "voxi2_qt/kernel/qtobject2.h"

#include <QBrush>

#include <exception>

namespace VOXI {

namespace {

/// Calls one of the functions that an application may override; false if the property has gone
/// then.
template <class Value, class Read>
bool readOne(VXHandle<VXSimpleProperty2> property, std::optional<Value>& value, Read read)
{
    try {
        value = read(*property.get());
    } catch (...) {
        TROV::Thread::reportException(std::current_exception());
    }
    return property.isValid();
}

bool readAll(VXHandle<VXSimpleProperty2> handle, QtShownProperty& shown)
{
    using P = VXSimpleProperty2;
    return readOne(handle, shown.name, [](const P& p) { return toQString(p.getName()); })
           && readOne(handle, shown.value, [](const P& p) { return toQString(p.getValue()); })
           && readOne(handle, shown.nameColor, [](const P& p) { return p.getNameTextColor(); });
}

} // namespace

std::optional<QtShownProperty> QtShownProperty::read(VXHandle<VXSimpleProperty2> handle,
                                                     const QtObject2& peer)
{
    const VXObjectDataLocker lock;
    VXSimpleProperty2* const property = handle.get();
    if (!property)
        return {};
    QtShownProperty shown;
    shown.isGroup = property->type().kind() == PropertyKind::Group;
    shown.isPlain = property->isPlain();
    shown.isPulled = property->isPulled();
    shown.isDefault = property->isDefault();
    if (shown.isPlain) {
        shown.name = toQString(property->keptName());
        shown.value = toQString(property->getValue());
        shown.nameColor = property->keptNameTextColor();
        property->noteRead(peer.getUID());
        return shown;
    }
    const QtHandlerFrame frame(peer);
    if (!readAll(handle, shown))
        return {};
    property->noteRead(peer.getUID()); // not before: reading may have been news, each time
    return shown;
}

QtPropertyItem::QtPropertyItem(Property property, const QtShownProperty& shown)
    : m_property(property)
{
    setFlags(flags() | Qt::ItemIsEditable);
    showBold(NameColumn, shown.isGroup);
    show(shown);
}

void QtPropertyItem::show(const QtShownProperty& shown)
{
    m_isPlain = shown.isPlain;
    m_isPulled = shown.isPulled;
    if (shown.name)
        setText(NameColumn, *shown.name);
    if (shown.value)
        setText(ValueColumn, *shown.value);
    showBold(ValueColumn, !shown.isDefault);
    if (!shown.nameColor)
        return;
    if (shown.nameColor->alpha() != 0)
        setForeground(NameColumn, VX2Qt(*shown.nameColor));
    else if (data(NameColumn, Qt::ForegroundRole).isValid())
        setData(NameColumn, Qt::ForegroundRole, QVariant());
}

void QtPropertyItem::showBold(int column, bool isBold)
{
    if (font(column).bold() == isBold)
        return;
    QFont bold;
    bold.setBold(true);
    setData(column, Qt::FontRole, isBold ? QVariant(bold) : QVariant());
}

bool QtPropertyItem::contains(const QString& text) const
{
    return this->text(NameColumn).contains(text, Qt::CaseInsensitive)
           || this->text(ValueColumn).contains(text, Qt::CaseInsensitive);
}

} // namespace VOXI
