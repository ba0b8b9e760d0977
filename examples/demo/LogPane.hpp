#pragma once

#include "Pane.hpp"

#include <deque>
#include <string>

namespace demo {

// The event log: one line per event, newest at the bottom.
class LogPane : public Pane
{
public:
    LogPane() : Pane("Log", false) {}

    void Add(const std::string& line);
    const std::deque<std::string>& Lines() const { return m_aLines; }
    void Render(vesk::OutputDevice& dev, const vesk::TamSize& size) override;

private:
    static constexpr size_t MAX_LINES = 200;
    std::deque<std::string> m_aLines;
};

} // namespace demo
