#include "voxi2/controls/textvalidator.h"

#include <utility>

namespace VOXI {

TextValidator TextValidator::integer(int least, int greatest)
{
    return TextValidator(IntegerRange{least, greatest});
}

TextValidator TextValidator::decimal(double least, double greatest, int decimals)
{
    return TextValidator(DecimalRange{least, greatest, decimals});
}

TextValidator TextValidator::matching(std::wstring expression)
{
    return TextValidator(Pattern{std::move(expression)});
}

TextValidator TextValidator::function(Function function)
{
    if (!function)
        return {};
    return TextValidator(std::make_shared<const Function>(std::move(function)));
}

} // namespace VOXI
