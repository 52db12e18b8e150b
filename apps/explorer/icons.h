#pragma once

#include "voxi_util/icon.h"

namespace explorer {

/// The program's own pictures, drawn as SVG so that they are sharp at any size.
enum class Picture {
    Program,
    Open,
    Sample,
    Table,
    View,
    Column,
    Key,
    Index,
    Trigger,
    Commit,
    RollBack,
    AddRow,
    RemoveRow,
    SetNull,
    Run,
    Stop,
    Export,
    Import,
    Reload,
    Refused
};

VOXI::Icon icon(Picture picture);

} // namespace explorer
