#include "voxi/fontnames.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QFontDatabase>

#include <gtest/gtest.h>

using namespace VOXI;

TEST(ConvertColor, KeepsAllFourChannels)
{
    EXPECT_EQ(VX2Qt(Color::fromRgba(0x11223344)), QColor(0x11, 0x22, 0x33, 0x44));
    EXPECT_EQ(Qt2VX(QColor(0x11, 0x22, 0x33, 0x44)).rgba(), 0x11223344u);
    EXPECT_EQ(Qt2VX(QColor::fromHsv(120, 255, 255)).rgba(), 0x00ff00ffu);
    EXPECT_EQ(Qt2VX(QColor()), Color());
}

TEST(ConvertWindowFlags, ToQt)
{
    EXPECT_EQ(voxiFlagToQt(0), Qt::WindowFlags());
    EXPECT_EQ(voxiFlagToQt(0x10), Qt::WindowFlags());
    EXPECT_EQ(voxiFlagToQt(0x0001 | 0x0040), Qt::Window | Qt::WindowTitleHint);
    const std::pair<unsigned, unsigned> bits[] = {
        {0x0001, 0x1},     {0x0002, 0x3},    {0x0004, 0x9},     {0x0008, 0x11},
        {0x0020, 0x100},   {0x0040, 0x1000}, {0x0080, 0x2000},  {0x0100, 0x4000},
        {0x0200, 0x8000},  {0x0400, 0xb},    {0x0800, 0x40000}, {0x1000, 0x800},
        {0x2000, 0x10000}, {0x4000, 0x400},  {0x8000, 0x800},   {0xffff0000u, 0x0},
    };
    for (const auto& [voxi, qt] : bits)
        EXPECT_EQ(voxiFlagToQt(voxi).toInt(), qt) << std::hex << voxi;
    // All hints, the unnamed one among them, stand for every window type.
    EXPECT_EQ(voxiFlagToQt(0xfff0).toInt() & 0xffu, 0xffu);
    EXPECT_EQ(voxiFlagToQt(0xffe0).toInt() & 0xffu, 0x0bu);
}

TEST(ConvertWindowFlags, AnySharedBitComesBack)
{
    const std::pair<unsigned, unsigned> bits[] = {
        {0x0, 0x0},        {0x1, 0x040f},    {0x2, 0x0402},     {0x8, 0x0404},    {0x10, 0x0008},
        {0x100, 0x0020},   {0x1000, 0x0040}, {0x2000, 0x0080},  {0x4000, 0x0100}, {0x8000, 0x0200},
        {0x40000, 0x0800}, {0x800, 0x9000},  {0x10000, 0x2000}, {0x400, 0x4000},  {0x8000000, 0x0},
    };
    for (const auto& [qt, voxi] : bits)
        EXPECT_EQ(QtFlagToVoxi(Qt::WindowFlags::fromInt(qt)), voxi) << std::hex << qt;
    EXPECT_EQ(QtFlagToVoxi(Qt::Window), 0x040fu);
    EXPECT_EQ(QtFlagToVoxi(Qt::FramelessWindowHint), 0x9000u);
}

TEST(ConvertFont, WantedPropertiesArriveAndComeBack)
{
    const QString family = QFontDatabase::families().value(0);
    VXFont font(toStdString(family), 13, VXFont::Bold, FontStyle::Italic);
    font.setUnderline(true);
    const QFont qFont = VX2Qt(font);
    EXPECT_EQ(qFont.family(), family);
    EXPECT_EQ(qFont.pointSize(), 13);
    EXPECT_EQ(qFont.weight(), QFont::Bold);
    EXPECT_EQ(qFont.style(), QFont::StyleItalic);
    EXPECT_TRUE(qFont.underline());
    EXPECT_EQ(Qt2VX(qFont), font);
}

TEST(ConvertFont, Weights)
{
    const std::pair<int, int> weights[] = {{25, 300}, {50, 400}, {63, 600}, {75, 700}, {87, 900}};
    for (const auto& [voxi, qt] : weights) {
        EXPECT_EQ(VX2Qt(VXFont("", 0, voxi)).weight(), qt);
        EXPECT_EQ(Qt2VX(VX2Qt(VXFont("", 0, voxi))).weight(), voxi);
    }
}

TEST(ConvertFont, WhatIsNotWantedIsInherited)
{
    QFont inherited;
    inherited.setFamily(QStringLiteral("Some Family"));
    inherited.setPixelSize(31);
    const QFont resolved = VX2Qt(VXFont()).resolve(inherited);
    EXPECT_EQ(resolved.family(), QStringLiteral("Some Family"));
    EXPECT_EQ(resolved.pixelSize(), 31);
    EXPECT_EQ(Qt2VX(inherited).pointSize(), -1);
}

TEST(ConvertFont, FontNamesGoThroughTheFontDatabase)
{
    installFontNameResolver(nullptr);
    EXPECT_EQ(getClosestScaleableFontName("No Such Family"), "No Such Family");
    installQtFontNameResolver();
    const QString family = QFontDatabase::families().value(0);
    ASSERT_TRUE(QFontDatabase::isSmoothlyScalable(family));
    EXPECT_EQ(getClosestScaleableFontName(toStdString(family)), toStdString(family));
    const QString substitute = toQString(getClosestScaleableFontName("No Such Family"));
    EXPECT_TRUE(QFontDatabase::families().contains(substitute));
    EXPECT_EQ(VX2Qt(VXFont("No Such Family", 10)).family(), substitute);
    installFontNameResolver(nullptr);
}
