#include "qtpropertyitem.h"

#include "trov/thread.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qthandlerframe.h"

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
    shown.revision = property->revision();
    shown.number = shown.revision->load();
    if (shown.isPlain) {
        shown.name = toQString(property->getName());
        shown.value = toQString(property->getValue());
        shown.nameColor = property->getNameTextColor();
        property->noteRead();
        return shown;
    }
    const QtHandlerFrame frame(peer);
    if (!readAll(handle, shown))
        return {};
    property->noteRead(); // not before: reading may have been news, each time
    return shown;
}

QtPropertyItem::QtPropertyItem(Property property, const QtShownProperty& shown)
    : m_property(property)
{
    setFlags(flags() | Qt::ItemIsEditable);
    if (shown.isGroup) {
        QFont bold;
        bold.setBold(true);
        setFont(NameColumn, bold);
    }
    show(shown);
}

void QtPropertyItem::show(const QtShownProperty& shown)
{
    m_revision = shown.revision;
    m_number = shown.number;
    m_isPlain = shown.isPlain;
    m_isPulled = shown.isPulled;
    if (shown.name)
        setText(NameColumn, *shown.name);
    if (shown.value)
        setText(ValueColumn, *shown.value);
    if (!shown.nameColor)
        return;
    if (shown.nameColor->alpha() != 0)
        setForeground(NameColumn, VX2Qt(*shown.nameColor));
    else if (data(NameColumn, Qt::ForegroundRole).isValid())
        setData(NameColumn, Qt::ForegroundRole, QVariant());
}

bool QtPropertyItem::contains(const QString& text) const
{
    return this->text(NameColumn).contains(text, Qt::CaseInsensitive)
           || this->text(ValueColumn).contains(text, Qt::CaseInsensitive);
}

} // namespace VOXI
