#include "graphics/GoldenImage.hpp"

#include <vesk/graphics.hpp>

#include <gtest/gtest.h>

namespace vesk {
namespace {

const bool kFontsPinned = test::PinFonts();

const TamColor kBlack(0u);
const TamColor kWhite;
const TamColor kRed(0x0000FFu);
const TamColor kGreen(0x00A000u);
const TamColor kBlue(0xFF0000u);
const TamColor kOrange(0x00A0FFu);

using test::Canvas;

TEST(Golden, PlainPrimitives)
{
    Canvas d(160, 120);
    d.ChangePen(Pen(kBlack));
    d.DrawLine(TamPoint(2, 2), TamPoint(40, 2));
    d.DrawLine(TamPoint(2, 6), TamPoint(40, 20));
    d.ChangePen(Pen(kBlue, 3, PenStyle::Dash));
    d.DrawLine(TamPoint(2, 26), TamPoint(60, 26));
    d.ChangePen(Pen(kBlack));
    d.ChangeFillInBrush(Brush(kOrange));
    d.DrawRect(CRectangle(50, 4, 70, 20));
    d.DrawEllipse(CRectangle(76, 4, 106, 24));
    d.ChangeFillInBrush(Brush(HatchStyle::DiagonalCross, kRed, kWhite));
    d.DrawPie(CRectangle(112, 4, 150, 40), TamPoint(150, 22), TamPoint(131, 4));
    d.DrawArc(CRectangle(112, 44, 150, 80), TamPoint(112, 62), TamPoint(150, 62));
    d.ChangeFillInBrush(Brush(kGreen));
    d.DrawPolygon(CPolygon{{4, 40}, {40, 34}, {30, 70}, {20, 45}, {8, 70}});
    d.ChangePen(Pen(kRed, 2));
    d.DrawFrame(CRectangle(46, 34, 80, 56));
    d.Draw3DFrame(CRectangle(84, 34, 106, 56), 2, kWhite, TamColor(0x808080u), false);
    d.Draw3DFrame(CRectangle(84, 60, 106, 82), 2, kWhite, TamColor(0x808080u), true);
    d.DrawPixel(TamPoint(60, 45), kBlue);
    d.InvertRect(CRectangle(46, 60, 80, 70));
    d.ChangeBackgroundTexture(Texture(Brush(HatchStyle::Horizontal, kBlue, kWhite)));
    d.Erase(CRectangle(4, 76, 40, 96));
    d.EraseTransparent(CRectangle(20, 86, 60, 110), kRed, 50);
    Region rgn(CRectangle(66, 90, 90, 115));
    rgn.Union(CRectangle(80, 100, 110, 115));
    d.FillRgn(rgn, Brush(kGreen));
    d.FrameRgn(rgn, Brush(kBlack), 2);
    EXPECT_TRUE(test::MatchesGolden(d.Picture(), "plain_primitives"));
}

TEST(Golden, HQPrimitives)
{
    Canvas d(160, 120);
    d.DrawLineHQ(FPoint(4, 4), FPoint(60, 20), TransparentColor(kBlue, 100), 3, LineCap::Round);
    d.DrawLineHQ(FPoint(4, 24), FPoint(60, 40), TransparentColor(kRed, 50), 6, LineCap::Flat);
    d.ChangePen(Pen(kGreen, 4));
    d.DrawLineHQ(FPoint(4, 46), FPoint(60, 46), 0, int32_t(LineCap::Square));
    d.DrawFrameHQ(FRectangle(66, 4, 100, 30));
    d.DrawArcHQ(CRectangle(106, 4, 150, 40), 30, 240, kBlack, 2.5);
    d.DrawRectHQ(FRectangle(66.5, 36.5, 90.5, 50.5));
    d.DrawRectHQ(FRectangle(80, 44, 100, 60), TransparentColor(kBlue, 50));
    d.ChangeFillInBrush(Brush(kOrange));
    d.DrawEllipseHQ(FRectangle(106, 46, 150, 70), 80);
    d.DrawPolygonHQ(FPolygon{{4.5, 56}, {40, 52.3}, {30.2, 90}, {20, 62}, {8, 90}});
    d.FillTransparentPolygon(CPolygon{{30, 60}, {60, 60}, {45, 90}}, TransparentColor(kBlue, 50));
    d.DrawRing(CRectangle(66, 66, 96, 96), 5, TransparentColor(kRed, 100), false);
    d.DrawRing(CRectangle(100, 76, 130, 106), 8, TransparentColor(kGreen, 100), true);
    d.DrawRoundRect(CRectangle(4, 96, 50, 116), 3, 6, TransparentColor(kBlue, 100), false);
    d.DrawRoundRect(CRectangle(54, 98, 96, 118), 6, 5, TransparentColor(kOrange, 100), true);
    d.DrawSplineHQ(FPolygon{{132, 80}, {145, 90}, {134, 100}, {156, 116}}, TransparentColor(kBlack, 100), 1.5);
    EXPECT_TRUE(test::MatchesGolden(d.Picture(), "hq_primitives"));
}

TEST(Golden, TextInThreeSizesAndBothFamilies)
{
    ASSERT_TRUE(kFontsPinned);
    Canvas d(260, 150);
    int y = 2;
    for (int height : {10, 16, 26}) {
        Font f("DejaVu Sans", height);
        f.SetColor(kBlue);
        d.ChangeFont(f);
        d.DrawText(TamPoint(2, y), "Plain Vesk");
        f.SetWeight(600);
        f.SetColor(kBlack);
        d.ChangeFont(f);
        d.DrawTextHQ(FPoint(140, y), "HQ Vesk");
        y += height + 6;
    }
    Font styled("No Such Face", 14, 400, true);
    styled.SetUnderline(true);
    styled.SetStrikeout(true);
    styled.SetTransparent(false);
    styled.SetFillColor(TamColor(0xC0FFFFu));
    d.ChangeFont(styled);
    d.DrawText(TamPoint(2, 80), "Fallback");
    d.DrawStretchText(TamPoint(140, 80), "Stretch", 90);
    d.ChangeFont(Font("DejaVu Serif", 13));
    d.DrawRotatedText(CRectangle(2, 100, 80, 148), "Turned", 30);
    d.DrawTextHQVertical(FPoint(240, 148), "Up");
    EXPECT_TRUE(test::MatchesGolden(d.Picture(), "text", 8, 40));
}

TEST(Golden, GradientsOfEachKind)
{
    Canvas d(160, 80);
    const ColorPair pair(kRed, kBlue);
    d.Erase(CRectangle(2, 2, 36, 36), RectGradient(pair));
    d.Erase(CRectangle(40, 2, 74, 36), HorizontalGradient(pair));
    d.Erase(CRectangle(78, 2, 112, 36), VerticalGradient(pair));
    d.Erase(CRectangle(116, 2, 150, 36), DiagonalGradient(pair));
    CenterPointGradient centre(pair, kWhite);
    d.Erase(CRectangle(2, 40, 36, 76), centre);
    centre.SetCenterPercent(25, 75);
    centre.SetAntiAliasing(true);
    d.ChangeFillInBrush(Brush(centre));
    d.ChangePen(Pen(kBlack, 1, PenStyle::Null));
    d.DrawPolygon(CPolygon{{40, 40}, {74, 50}, {60, 76}});
    d.DrawEllipse(CRectangle(78, 40, 112, 76));
    d.ChangeBackgroundTexture(Texture(DiagonalGradient(pair), 50));
    d.Erase(CRectangle(116, 40, 150, 76));
    EXPECT_TRUE(test::MatchesGolden(d.Picture(), "gradients"));
}

TEST(Golden, ClipRegionLimitsBothFamilies)
{
    Canvas d(80, 60);
    Region clip(CRectangle(0, 0, 39, 29));
    clip.Union(CRectangle(50, 30, 79, 59));
    d.ChangeClipRegion(clip);
    d.ChangeFillInBrush(Brush(kGreen));
    d.DrawEllipse(CRectangle(5, 5, 75, 55));
    d.DrawLineHQ(FPoint(0, 59), FPoint(79, 0), TransparentColor(kRed, 100), 4, LineCap::Flat);
    d.ChangeClipRegion();
    d.DrawLine(TamPoint(0, 30), TamPoint(80, 30));
    EXPECT_TRUE(test::MatchesGolden(d.Picture(), "clip"));
}

} // namespace
} // namespace vesk
