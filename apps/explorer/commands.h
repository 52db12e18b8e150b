#pragma once

#include "voxi2/kernel/vxaction2.h"

namespace explorer {

/// All that the program can be told to do, for menus, tool bar and keys alike.
struct Commands
{
    /// They belong to the window.
    explicit Commands(VOXI::VXObject2* window);

    VOXI::VXAction2* const open;
    VOXI::VXAction2* const sample;
    VOXI::VXAction2* const reload;
    VOXI::VXAction2* const exportRows;
    VOXI::VXAction2* const importRows;
    VOXI::VXAction2* const close;
    VOXI::VXAction2* const quit;

    VOXI::VXAction2* const commit;
    VOXI::VXAction2* const rollBack;
    VOXI::VXAction2* const insertRow;
    VOXI::VXAction2* const deleteRows;
    VOXI::VXAction2* const setNull;
    VOXI::VXAction2* const filter;

    VOXI::VXAction2* const run;
    VOXI::VXAction2* const stop;
    VOXI::VXAction2* const complete;

    VOXI::VXAction2* const data;
    VOXI::VXAction2* const query;
    VOXI::VXAction2* const about;
};

} // namespace explorer
