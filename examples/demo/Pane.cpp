#include "Pane.hpp"

using namespace vesk;

namespace demo {

bool Pane::CreatePane(CWnd* parent)
{
    return CreateOwned(WndKind::Child, parent, TamPoint(0, 0), TamSize(100, 100), m_aTitle.c_str());
}

int32_t Pane::DrawFrame(OutputDevice& dev, const TamSize& size) const
{
    const int32_t right = size.Width() - 1, bottom = size.Height() - 1;
    dev.Erase(CRectangle(0, 0, right, bottom), TamColor(0xFAFAFAu));
    if (m_bTitleStrip)
        dev.Erase(CRectangle(0, 0, right, TITLE_HEIGHT - 1), TamColor(0x6E4A2Eu));
    dev.DrawGrayEdge(CRectangle(0, 0, right, bottom), true);
    if (!m_bTitleStrip)
        return 4;
    DrawLine(dev, 6, 2, m_aTitle, TamColor(0xFFFFFFu));
    return TITLE_HEIGHT + 4;
}

void Pane::DrawLine(OutputDevice& dev, int32_t x, int32_t y, const std::string& text, const TamColor& color)
{
    Font font("DejaVu Sans", 12);
    font.SetColor(color);
    dev.ChangeFont(font);
    dev.DrawTextHQ(FPoint(x, y), SString(text.c_str()));
}

} // namespace demo
