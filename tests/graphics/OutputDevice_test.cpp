#include "graphics/FileBytes.hpp"
#include "graphics/GoldenImage.hpp"

#include "graphics/DeviceContext.hpp"

#include <vesk/frame/VeskData.hpp>
#include <vesk/graphics.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace vesk {
namespace {

const TamColor kBlack(0u);
const TamColor kRed(0x0000FFu);

// Collects the messages drawing errors report while it lives.
struct MessageBoxProbe
{
    MessageBoxProbe() : previous(GlSetMessageBoxFunction(&Record)) { Shown().clear(); }
    ~MessageBoxProbe() { GlSetMessageBoxFunction(previous); }
    static std::vector<std::string>& Shown()
    {
        static std::vector<std::string> shown;
        return shown;
    }
    static void Record(const char* text, const char* title) { Shown().push_back(std::string(title) + "|" + text); }
    MessageBoxFunction previous;
};

uint32_t Argb(VirtualDevice& d, int x, int y)
{
    return test::At(d.GethDC()->surface, x, y);
}

TEST(OutputDevice, WithoutContextEveryOperationReturnsAtOnce)
{
    MessageBoxProbe probe;
    OutputDevice none;
    VirtualDevice unsized;
    for (OutputDevice* d : {&none, static_cast<OutputDevice*>(&unsized)}) {
        EXPECT_FALSE(d->InitDevice());
        EXPECT_EQ(d->DrawRectHQ(FRectangle(0, 0, 5, 5)), 0);
        EXPECT_FALSE(d->DrawLineHQ(FPoint(0, 0), FPoint(NAN, 1), TransparentColor(), 1, LineCap::Flat));
        EXPECT_FALSE(d->DrawTextHQ(FPoint(0, 0), "x"));
        d->DrawRect(CRectangle(0, 0, 5, 5));
        EXPECT_EQ(d->GetPixel(TamPoint(0, 0)), 0xFFFFFFFFu);
        EXPECT_EQ(d->GetTextSize("abc"), TamSize(0, 0));
        EXPECT_EQ(d->GetGdiPlusErrorCount(), 0u);
    }
    EXPECT_TRUE(probe.Shown().empty());
}

TEST(OutputDevice, FirstFailureOnEachDeviceIsReportedOnce)
{
    MessageBoxProbe probe;
    VirtualDevice a(TamSize(8, 8)), b(TamSize(8, 8));
    EXPECT_FALSE(a.DrawLineHQ(FPoint(0, 0), FPoint(NAN, 1), TransparentColor(), 1, LineCap::Flat));
    EXPECT_FALSE(a.DrawPolygonHQ(FPolygon{{0, 0}, {INFINITY, 0}, {0, 5}}));
    EXPECT_EQ(a.GetGdiPlusErrorCount(), 2u);
    ASSERT_EQ(probe.Shown().size(), 1u);
    EXPECT_EQ(probe.Shown()[0], "VESK Error|Error in GDI Plus drawing");
    EXPECT_FALSE(b.DrawRing(CRectangle(0, 0, 1e7, 5), 2, TransparentColor(), false));
    EXPECT_EQ(b.GetGdiPlusErrorCount(), 1u);
    EXPECT_EQ(probe.Shown().size(), 2u);
    // Nothing to fill is not a failure.
    EXPECT_FALSE(b.DrawPolygonHQ(FPolygon{{0, 0}, {5, 5}}));
    EXPECT_EQ(b.GetGdiPlusErrorCount(), 1u);
}

TEST(OutputDevice, DrawRectHQResultsAndFallback)
{
    MessageBoxProbe probe;
    VirtualDevice d(TamSize(10, 10));
    EXPECT_EQ(d.DrawRectHQ(FRectangle(0, 0, FRECT_EMPTY, 5)), 0);
    EXPECT_EQ(Argb(d, 0, 0), 0u);
    EXPECT_EQ(d.DrawRectHQ(FRectangle(1, 1, 3, 3)), 1); // drawn pixels: golden hq_primitives
    // A rectangle the anti-aliased family cannot take is counted and drawn plainly instead.
    EXPECT_EQ(d.DrawRectHQ(FRectangle(-1e9, 7, 9, 9), TransparentColor(kRed, 100)), 0);
    EXPECT_EQ(d.GetGdiPlusErrorCount(), 1u);
    EXPECT_EQ(Argb(d, 0, 7), 0xFFFF0000u);
    EXPECT_EQ(Argb(d, 8, 8), 0xFFFF0000u);
    EXPECT_EQ(Argb(d, 0, 9), 0u);
}

// Rectangles, lines and their edges are pixel-exact in the golden pictures and the
// differential tests; this checks how pixels are read back.
TEST(OutputDevice, GetPixelGivesBgrInsideAndWhiteOutside)
{
    VirtualDevice d(TamSize(12, 12));
    d.Erase(CRectangle(3, 3, 3, 3), kRed);
    EXPECT_EQ(d.GetPixel(TamPoint(3, 3)), 0x0000FFu);
    EXPECT_EQ(d.GetPixel(TamPoint(4, 4)), 0u); // transparent black
    EXPECT_EQ(d.GetPixel(TamPoint(12, 0)), 0xFFFFFFFFu);
    EXPECT_EQ(d.GetPixel(TamPoint(-1, 0)), 0xFFFFFFFFu);
}

TEST(OutputDevice, RasterOpInvertsPlainDrawingAndCopyReplacesAlpha)
{
    VirtualDevice d(TamSize(3, 1));
    d.Erase(CRectangle(0, 0, 2, 0), TamColor(0x808080u));
    EXPECT_EQ(d.ChangeRasterOp(ROP_SRCINVERT), ROP_SRCCOPY);
    d.Erase(CRectangle(0, 0, 0, 0), kRed); // |colour - destination| per channel
    EXPECT_EQ(Argb(d, 0, 0), 0xFF7F8080u);
    EXPECT_EQ(d.ChangeRasterOp(ROP_SRCCOPY), ROP_SRCINVERT);
    d.Erase(CRectangle(1, 0, 1, 0), kRed);
    EXPECT_EQ(Argb(d, 1, 0), 0xFFFF0000u);

    // A source copy takes the source's alpha too: its transparent pixel clears the destination.
    VirtualDevice src(TamSize(2, 1));
    src.DrawPixel(TamPoint(0, 0), kBlack);
    d.DrawOutDev(TamPoint(1, 0), TamSize(2, 1), src, TamPoint(0, 0));
    EXPECT_EQ(Argb(d, 1, 0), 0xFF000000u);
    EXPECT_EQ(Argb(d, 2, 0), 0u);
}

TEST(OutputDevice, PlainLineCaps)
{
    // A 5-pixel line through row 5 from x = 5: square ends reach x = 3 at full width, round
    // ones only on the axis, flat ones not at all. Unknown caps are flat.
    const struct { LineCap cap; bool axis, corner; } cases[] = {
        {LineCap::Flat, false, false}, {LineCap::Square, true, true}, {LineCap::Round, true, false},
        {LineCap(7), false, false},
    };
    for (const auto& c : cases) {
        VirtualDevice d(TamSize(16, 12));
        d.ChangePen(Pen(kBlack, 5, PenStyle::Solid, c.cap));
        d.DrawLine(TamPoint(5, 5), TamPoint(12, 5));
        EXPECT_EQ(Argb(d, 3, 5) != 0, c.axis) << int(c.cap);
        EXPECT_EQ(Argb(d, 3, 3) != 0, c.corner) << int(c.cap);
        EXPECT_NE(Argb(d, 8, 3), 0u) << int(c.cap);
    }
}

TEST(OutputDevice, TextureAndColourOpacityGiveTheSameAlpha)
{
    VirtualDevice d(TamSize(2, 1));
    d.ChangeBackgroundTexture(Texture(kRed, 50));
    d.Erase(CRectangle(0, 0, 0, 0));
    d.EraseTransparent(CRectangle(1, 0, 1, 0), kRed, 50);
    EXPECT_EQ(Argb(d, 0, 0), 0x7F7F0000u); // 50 * 255 / 100 = 127, premultiplied red
    EXPECT_EQ(Argb(d, 1, 0), 0x7F7F0000u);
}

TEST(OutputDevice, BadGeometryDrawsNothingAndNeverCrashes)
{
    MessageBoxProbe probe;
    VirtualDevice d(TamSize(16, 16));
    d.ChangeFillInBrush(Brush(kRed));
    d.ChangePen(Pen(kBlack, -4));
    d.DrawPolygon(CPolygon());
    d.DrawPolygon(CPolygon{{3, 3}});
    d.DrawRect(CRectangle(0, 0, RECT_EMPTY, 9));
    d.DrawLine(TamPoint(INT32_MIN, 0), TamPoint(INT32_MAX, 0));
    EXPECT_EQ(Argb(d, 0, 0), 0u);
    EXPECT_FALSE(d.DrawPolygonHQ(FPolygon()));
    CPolygon many;
    FPolygon fmany;
    for (int i = 0; i < 100000; ++i) {
        const double a = 2 * M_PI * i / 100000;
        many.Add(TamPoint(int(8 + 20 * std::cos(a)), int(8 + 20 * std::sin(a))));
        fmany.Add(FPoint(8 + 20 * std::cos(a), 8 + 20 * std::sin(a)));
    }
    d.DrawPolygon(many);
    EXPECT_TRUE(d.DrawPolygonHQ(fmany));
    EXPECT_TRUE(d.DrawLineHQ(FPoint(0, 0), FPoint(15, 15), TransparentColor(), -3, LineCap::Round));
    d.ChangePen(Pen(kBlack, 1 << 30));
    d.DrawLine(TamPoint(0, 0), TamPoint(5, 5)); // an absurd width covers the picture, no more
    EXPECT_EQ(d.GetGdiPlusErrorCount(), 0u);
}

TEST(OutputDevice, ToolsAndExternalContexts)
{
    VirtualDevice d(TamSize(4, 4));
    d.ChangePen(Pen(kRed, 3));
    d.ChangeFont(Font("DejaVu Sans", 10));
    d.SetBackgroundAndFontCol(kRed);
    EXPECT_EQ(d.GetFont()->GetFillColor(), kRed);
    EXPECT_EQ(d.GetBackgroundTexture().GetColor(), kRed);
    d.ReleaseDevice();
    EXPECT_EQ(d.GetPen(), nullptr);
    EXPECT_EQ(d.GetFont(), nullptr);

    // An external context is drawn on but never released by the device.
    DeviceContext* dc = d.GethDC();
    {
        OutputDevice borrower;
        borrower.SetHDCFromExtern(dc);
        borrower.Erase(CRectangle(0, 0, 3, 3), kRed);
        borrower.ReleaseDevice();
    }
    EXPECT_EQ(d.GetPixel(TamPoint(1, 1)), 0x0000FFu);
}

// A window layer stand-in: lends one picture to every window device.
struct FakeWindowSource : WindowContextSource
{
    FakeWindowSource() : surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 4, 4)) {}
    ~FakeWindowSource() override { cairo_surface_destroy(surface); }
    DeviceContext* GetDC(OutputDevice&) override
    {
        ++lent;
        return DeviceContext::Create(surface);
    }
    void ReleaseDC(OutputDevice&, DeviceContext* dc) override
    {
        ++returned;
        DeviceContext::Delete(dc);
    }
    cairo_surface_t* surface;
    int lent = 0, returned = 0;
};

TEST(OutputDevice, WindowDevicesBorrowFromTheWindowLayer)
{
    OutputDevice orphan(DEVICE_WINDOW);
    EXPECT_FALSE(orphan.InitDevice());
    FakeWindowSource source;
    WindowContextSource* previous = SetWindowContextSource(&source);
    {
        OutputDevice window(DEVICE_WINDOW);
        window.Erase(CRectangle(0, 0, 3, 3), kRed);
        window.DrawPixel(TamPoint(0, 0), kBlack);
        EXPECT_EQ(source.lent, 1);
    }
    EXPECT_EQ(source.returned, 1);
    EXPECT_EQ(test::At(source.surface, 1, 1), 0xFFFF0000u);
    SetWindowContextSource(previous);
}

TEST(VirtualDevice, RefusesAbsurdSizesWithoutLosingThePicture)
{
    VirtualDevice d(TamSize(3, 2));
    d.DrawPixel(TamPoint(1, 1), kRed);
    for (const TamSize& bad : {TamSize(0, 5), TamSize(5, -1), TamSize(100000, 100000),
                               TamSize(VirtualDevice::MAX_SIDE, VirtualDevice::MAX_SIDE)})
        EXPECT_FALSE(d.SetOutputSize(bad));
    EXPECT_EQ(d.GetOutputSize(), TamSize(3, 2));
    EXPECT_EQ(d.GetPixel(TamPoint(1, 1)), 0x0000FFu);
    d.ChangePen(Pen(kRed));
    EXPECT_TRUE(d.SetOutputSize(TamSize(VirtualDevice::MAX_SIDE, 1)));
    EXPECT_EQ(d.GetPixel(TamPoint(1, 0)), 0u);
    d.DrawLine(TamPoint(100, 0), TamPoint(200, 0)); // on the new picture, with the kept pen
    EXPECT_EQ(d.GetPixel(TamPoint(150, 0)), 0x0000FFu);
}

TEST(Text, HintFollowsHeightAndClearType)
{
    Font small("DejaVu Sans", 12), large("DejaVu Sans", 24), edge("DejaVu Sans", 20);
    EXPECT_EQ(OutputDevice::GetTextRenderingHint(small), 3); // no library state: no ClearType
    VeskInit();
    GetPVeskData()->SetCanClearType(true);
    EXPECT_EQ(OutputDevice::GetTextRenderingHint(small), 5);
    EXPECT_EQ(OutputDevice::GetTextRenderingHint(edge), 5);
    EXPECT_EQ(OutputDevice::GetTextRenderingHint(large), 3);
    GetPVeskData()->SetCanClearType(false);
    EXPECT_EQ(OutputDevice::GetTextRenderingHint(small), 3);
    VeskExit();
}

TEST(Text, HQBoldStartsAt560AndMeasuresTrailingSpaces)
{
    ASSERT_TRUE(test::PinFonts());
    VirtualDevice d(TamSize(4, 4));
    d.ChangeFont(Font("DejaVu Sans", 16, 559));
    const FSize regular = d.GetTextSizeHQ("Weight");
    d.ChangeFont(Font("DejaVu Sans", 16, 560));
    const FSize bold = d.GetTextSizeHQ("Weight");
    EXPECT_GT(bold.width, regular.width);
    EXPECT_GT(d.GetTextSizeHQ("Weight  ").width, bold.width);
    // Absurd heights are clamped, not refused.
    d.ChangeFont(Font("DejaVu Sans", INT32_MAX));
    EXPECT_GT(d.GetTextSizeHQ("x").height, 1000);
    d.ChangeFont(Font("DejaVu Sans", -7));
    EXPECT_GE(d.GetTextSize("x").Height(), 1);
}

size_t Count(const std::string& text, const std::string& what)
{
    size_t n = 0;
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++n;
    return n;
}

TEST(PrinterDevice, PrintsAPdfDocument)
{
    const std::string path = ::testing::TempDir() + "vesk_printer_test.pdf";
    {
        PrinterDevice p(path.c_str(), 200, 100);
        EXPECT_EQ(p.GetDeviceKind(), uint32_t(DEVICE_PRINTER));
        p.ChangeFillInBrush(Brush(kRed));
        p.DrawRect(CRectangle(10, 10, 50, 50));
        EXPECT_TRUE(p.DrawLineHQ(FPoint(0, 0), FPoint(200, 100), TransparentColor(kBlack, 100), 2, LineCap::Round));
        p.NewPage();
        p.DrawText(TamPoint(10, 10), "Page two");
        EXPECT_EQ(p.GetPixel(TamPoint(0, 0)), 0xFFFFFFFFu); // a document has no pixels to read
        EXPECT_EQ(p.EndDoc(), ERR_OK);
    }
    const std::vector<uint8_t> bytes = test::ReadBytes(path);
    const std::string pdf(bytes.begin(), bytes.end());
    EXPECT_EQ(pdf.rfind("%PDF-", 0), 0u);
    EXPECT_EQ(Count(pdf, "/Type /Page\n") + Count(pdf, "/Type /Page "), 2u);
    EXPECT_NE(pdf.find("%%EOF"), std::string::npos);
    std::remove(path.c_str());

    PrinterDevice nowhere("/nonexistent-dir/vesk.pdf");
    nowhere.DrawRect(CRectangle(0, 0, 5, 5));
    EXPECT_EQ(nowhere.EndDoc(), ERR_FAILURE);
}

} // namespace
} // namespace vesk
