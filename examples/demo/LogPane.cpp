#include "LogPane.hpp"

using namespace vesk;

namespace demo {

void LogPane::Add(const std::string& line)
{
    m_aLines.push_back(line);
    if (m_aLines.size() > MAX_LINES)
        m_aLines.pop_front();
    if (GetHandle())
        Invalidate();
}

void LogPane::Render(OutputDevice& dev, const TamSize& size)
{
    const int32_t top = DrawFrame(dev, size);
    const size_t fit = static_cast<size_t>(std::max(0, (size.Height() - top) / LINE_HEIGHT));
    const size_t first = m_aLines.size() > fit ? m_aLines.size() - fit : 0;
    int32_t y = top;
    for (size_t i = first; i < m_aLines.size(); ++i, y += LINE_HEIGHT)
        DrawLine(dev, 6, y, m_aLines[i]);
}

} // namespace demo
