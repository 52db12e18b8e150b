#pragma once

namespace VOXI {

/// What the models of this back end answer beside Qt's own roles.
enum CellRole {
    CellEnabledRole = 50,
    CellReadOnlyRole = 51,
    CellRendererRole = 52,
    CellRendererTextRole = 53,
    CellWidgetRole = 54,
    HeaderIconRole = 55, ///< of sections of headers, as the next
    HeaderToolTipRole = 56
};

} // namespace VOXI
