#include "commands.h"

#include "icons.h"

#include <optional>
#include <string>

namespace explorer {

using namespace VOXI;

namespace {

VXAction2* make(VXObject2* window, const std::string& name, const std::string& label,
                const std::string& keys, const std::string& tip,
                std::optional<Picture> picture = {})
{
    auto* const action = new VXAction2(label, window);
    action->setObjectName(name);
    action->setStatusTip(tip);
    action->setToolTip(keys.empty() ? tip : tip + " (" + keys + ")");
    if (!keys.empty())
        action->setAccelerator(keys);
    if (picture)
        action->setIcon(icon(*picture));
    return action;
}

} // namespace

Commands::Commands(VXObject2* window)
    : open(make(window, "open", "&Open …", "Ctrl+O", "Open a database file", Picture::Open)),
      sample(make(window, "sample", "New &sample …", "",
                  "Make a file with the data of a shop, and open it", Picture::Sample)),
      reload(make(window, "reload", "&Reload", "Ctrl+R", "Read the file anew", Picture::Reload)),
      exportRows(make(window, "export", "&Export …", "Ctrl+E", "Write the rows to a file",
                      Picture::Export)),
      importRows(make(window, "import", "&Import CSV …", "Ctrl+I", "Read a CSV file into a table",
                      Picture::Import)),
      close(make(window, "close", "&Close file", "Ctrl+W", "Close the file")),
      quit(make(window, "quit", "&Quit", "Ctrl+Q", "End the program")),
      commit(make(window, "commit", "&Commit", "Ctrl+S", "Keep all changes", Picture::Commit)),
      rollBack(make(window, "rollback", "&Roll back", "Ctrl+Shift+Z", "Undo all changes",
                    Picture::RollBack)),
      insertRow(make(window, "insert", "&Insert row", "Ctrl+Ins", "Add a row", Picture::AddRow)),
      deleteRows(make(window, "delete", "&Delete rows", "Ctrl+Del", "Delete the selected rows",
                      Picture::RemoveRow)),
      setNull(make(window, "null", "Set &NULL", "Ctrl+0", "Set the selected cells to NULL",
                   Picture::SetNull)),
      filter(make(window, "filter", "&Filter column", "Ctrl+F",
                  "Go to the filter of the current column")),
      run(make(window, "run", "&Run", "Ctrl+Return", "Run what is selected, or all", Picture::Run)),
      stop(make(window, "stop", "&Stop", "Ctrl+.", "Stop what runs", Picture::Stop)),
      complete(make(window, "complete", "&Complete name", "Ctrl+Space",
                    "Complete the name at the cursor")),
      data(make(window, "data", "&Data", "Ctrl+1", "Show the rows of a table")),
      query(make(window, "query", "&SQL", "Ctrl+2", "Write and run SQL")),
      about(make(window, "about", "&About", "", "What this program is", Picture::Program))
{}

} // namespace explorer
