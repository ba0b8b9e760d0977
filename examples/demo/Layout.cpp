#include "Layout.hpp"

#include <algorithm>

namespace demo {

PaneBoxes ComputeLayout(int32_t width, int32_t height, const PaneVisibility& visible)
{
    width = std::max(width, 0);
    height = std::max(height, 0);
    const int32_t bottom = visible[PANE_LOG] ? height / 5 : 0;
    const int32_t top = height - bottom;
    const int32_t left = visible[PANE_FOLDER] ? width / 4 : 0;
    const bool rightShown = visible[PANE_PROPERTIES] || visible[PANE_COLOURS];
    const int32_t right = rightShown ? width * 7 / 25 : 0;

    PaneBoxes boxes{};
    if (visible[PANE_FOLDER])
        boxes[PANE_FOLDER] = {0, 0, left, top};
    if (visible[PANE_PREVIEW])
        boxes[PANE_PREVIEW] = {left, 0, width - left - right, top};
    if (visible[PANE_PROPERTIES] && visible[PANE_COLOURS]) {
        boxes[PANE_PROPERTIES] = {width - right, 0, right, top / 2};
        boxes[PANE_COLOURS] = {width - right, top / 2, right, top - top / 2};
    } else if (visible[PANE_PROPERTIES]) {
        boxes[PANE_PROPERTIES] = {width - right, 0, right, top};
    } else if (visible[PANE_COLOURS]) {
        boxes[PANE_COLOURS] = {width - right, 0, right, top};
    }
    if (visible[PANE_LOG])
        boxes[PANE_LOG] = {0, top, width, bottom};
    return boxes;
}

} // namespace demo
