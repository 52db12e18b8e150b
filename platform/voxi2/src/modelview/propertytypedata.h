#pragma once

#include "voxi2/modelview/propertytype.h"

#include <vector>

namespace VOXI {

struct PropertyType::Data
{
    PropertyKind kind = PropertyKind::Group;
    long long leastInteger = 0;
    long long greatestInteger = 0;
    long long integerStep = 1;
    double leastDouble = 0;
    double greatestDouble = 0;
    double doubleStep = 1;
    int decimals = -1;
    std::vector<PropertyChoice> choices{};
    FileDialogMode fileMode = FileDialogMode::OpenFile;
    std::vector<FileFilter> fileFilters{};
    TypeInfo type{};
};

} // namespace VOXI
