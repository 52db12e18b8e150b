#pragma once

#include <QByteArray>
#include <QSet>
#include <QString>

#include <optional>

namespace VOXI {

/// Qt restores what it once saved without looking: a number changed on the disk makes it count to
/// two thousand million, or crash. So these read the whole of it first.

/// The names of the bars and panes in what `QMainWindow::saveState` gave; nothing when a window of
/// this back end cannot have saved it.
std::optional<QSet<QString>> namesInSavedLayout(const QByteArray& state);

/// Whether `QWidget::saveGeometry`, of this Qt or an older one, can have given it.
bool isSavedGeometry(const QByteArray& geometry);

} // namespace VOXI
