#include "voxi2_qt/kernel/qtfont.h"

#include "enumtable.h"
#include "voxi/fontnames.h"
#include "voxi2_qt/kernel/qttext.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>

namespace VOXI {

namespace {
constexpr auto Styles = enumTable<FontStyle, QFont::Style>({
    {FontStyle::Normal, QFont::StyleNormal},
    {FontStyle::Italic, QFont::StyleItalic},
    {FontStyle::Oblique, QFont::StyleOblique},
});

// The toolkit counts weights from 0 to 99, Qt from 1 to 1000. Qt keeps its own table between the
// two scales, but calls it deprecated.
QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED
void setWeight(QFont& font, int weight) { font.setLegacyWeight(weight); }
int weightOf(const QFont& font) { return font.legacyWeight(); }
QT_WARNING_POP

std::string closestScalableFamily(const std::string& family)
{
    // Without an application Qt has no fonts to look through.
    if (!qGuiApp)
        return family;
    const QString name = toQString(family);
    return QFontDatabase::isSmoothlyScalable(name) ? family
                                                   : toStdString(QFontInfo(QFont(name)).family());
}
} // namespace

QFont VX2Qt(const VXFont& font)
{
    QFont result;
    if (!font.family().empty())
        result.setFamily(toQString(getClosestScaleableFontName(font.family())));
    if (font.pointSize() > 0)
        result.setPointSize(font.pointSize());
    result.setStyle(Styles.toQt(font.style()));
    setWeight(result, font.weight());
    result.setUnderline(font.underline());
    return result;
}

VXFont Qt2VX(const QFont& font)
{
    VXFont result(toStdString(font.family()), font.pointSize(), weightOf(font),
                  Styles.toVx(font.style()));
    result.setUnderline(font.underline());
    return result;
}

void installQtFontNameResolver() { installFontNameResolver(&closestScalableFamily); }

} // namespace VOXI
