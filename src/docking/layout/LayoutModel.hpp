#pragma once

// The pure dock layout model: per frame edge an ordered list of bands, each a binary tree of
// splits and pane leaves. Only reference values are stored (band thicknesses with the DPI they
// were given at, split weights, minimum sizes at 96 DPI); every rectangle is computed from them,
// the client size and the DPI, so resizing and DPI changes are exact round trips.
#include "docking/layout/LayoutSolution.hpp"

#include <vesk/docking/DockablePane.hpp>
#include <vesk/text/SString.hpp>
#include <vesk/values/TamPoint.hpp>
#include <vesk/values/TamSize.hpp>

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

namespace vesk {

class DataBuffer;
class LayoutModel;
class LayoutNode;

// A pane of the model. Its rectangle is the one of the model's last layout, in screen
// coordinates; SetSizeInContainer sets its extent through the model.
class LayoutPane final : public DockablePane {
public:
    LayoutPane(LayoutModel& model, const SString& name, const TamSize& minSize96);
    SString GetName() const override { return m_sName; }
    CRectangle GetScreenRect() const override { return m_aRect; }
    void SetSizeInContainer(int32_t length) override;
    // Minimum size at 96 DPI.
    const TamSize& GetMinSize() const { return m_aMinSize; }
    LayoutNode* GetNode() const { return m_pNode; }

private:
    friend class LayoutModel;
    LayoutModel& m_rModel;
    SString m_sName;
    TamSize m_aMinSize;
    LayoutNode* m_pNode = nullptr;
    CRectangle m_aRect;
};

// A leaf holding a pane, or a split of its rectangle between two children separated by one
// divider. Weights are relative; only their ratio matters.
class LayoutNode final : public DockPaneContainer {
public:
    bool IsLeaf() const { return m_pPane != nullptr; }
    LayoutPane* GetPane() const { return m_pPane.get(); }
    // Whether the children lie side by side (left | right) rather than stacked.
    bool IsSideBySide() const { return m_bSideBySide; }
    LayoutNode* GetChild(int i) const { return m_aChild[i].get(); }
    LayoutNode* GetParent() const { return m_pParent; }
    int64_t GetWeight(int i) const { return m_aWeight[i]; }

    // Splits only: the number of splits above this one.
    int32_t GetDepth() const override;
    DockablePane* GetLeftPane() const override { return PaneOf(0); }
    DockPaneContainer* GetLeftContainer() const override { return ContainerOf(0); }
    DockablePane* GetRightPane() const override { return PaneOf(1); }
    DockPaneContainer* GetRightContainer() const override { return ContainerOf(1); }

private:
    friend class LayoutModel;
    DockablePane* PaneOf(int i) const;
    DockPaneContainer* ContainerOf(int i) const;

    std::unique_ptr<LayoutPane> m_pPane;
    bool m_bSideBySide = true;
    std::unique_ptr<LayoutNode> m_aChild[2];
    int64_t m_aWeight[2] = {1, 1};
    LayoutNode* m_pParent = nullptr;
};

// One band along a frame edge: a thickness in pixels at the DPI it was given at, and a tree.
struct LayoutBand {
    LayoutEdge eEdge = LayoutEdge::Left;
    int32_t nThickness = 0;
    int32_t nThicknessDpi = 96;
    std::unique_ptr<LayoutNode> pRoot;
};

class LayoutModel {
public:
    // An empty layout: the whole client area is free space.
    explicit LayoutModel(const TamSize& client = TamSize(0, 0), int32_t dpi = 96);
    LayoutModel(const LayoutModel&) = delete;
    LayoutModel& operator=(const LayoutModel&) = delete;

    // The client size and resolution of the frame, and the screen position of its client area;
    // the panes' rectangles follow. The references do not change.
    void SetFrame(const TamSize& client, int32_t dpi);
    void SetOrigin(const TamPoint& origin);
    const TamSize& GetClientSize() const { return m_aClient; }
    int32_t GetDpi() const { return m_nDpi; }
    const TamPoint& GetOrigin() const { return m_aOrigin; }

    // The rectangles for the current frame, or for any client size and resolution.
    const LayoutSolution& GetSolution() const { return m_aSolution; }
    LayoutSolution Solve(const TamSize& client, int32_t dpi) const;
    // The smallest client size in which every minimum size is kept, at `dpi`.
    TamSize GetMinClientSize(int32_t dpi) const;

    // A new band at frame edge `edge` holding one pane, `thickness` pixels thick at the current
    // resolution: outermost against the frame edge, or innermost next to the free space.
    // Null when the name is empty or taken.
    LayoutPane* AddBand(LayoutEdge edge, const SString& name, int32_t thickness, const TamSize& minSize96,
                        bool outermost);
    // The same at rank `index` of the dock order (0 outermost; past the end: innermost).
    LayoutPane* AddBandAt(LayoutEdge edge, const SString& name, int32_t thickness, const TamSize& minSize96,
                          size_t index);
    // Splits the leaf of `target`: the new pane takes side `side` of it with `length` pixels
    // (0 or less: half). Null when the name is empty or taken or the target is unknown.
    LayoutPane* DockIntoPane(const SString& name, const SString& target, LayoutEdge side, int32_t length,
                             const TamSize& minSize96);
    // The same beside a whole subtree: `node` (a leaf or split of this model) is split.
    LayoutPane* DockBeside(const SString& name, LayoutNode* node, LayoutEdge side, int32_t length,
                           const TamSize& minSize96);
    // Takes a pane out: its sibling takes its split's place, or its band goes. The exact
    // inverse of the AddBand or DockIntoPane that put it there.
    bool Remove(const SString& name);
    // Moves divider `index` of the current solution so that its left or top edge lies at
    // `pos` (client coordinates), clamped so that no pane goes below its minimum size.
    bool MoveDivider(size_t index, int32_t pos);
    // Gives a pane `length` pixels along its split (or its band's thickness), clamped likewise.
    bool SetExtent(const SString& name, int32_t length);

    // Gives a pane another minimum size (96 DPI); false when the name is unknown.
    bool SetMinSize(const SString& name, const TamSize& minSize96);

    // The stored form of the bands and trees: every band and every node is one section, so a
    // reader skips fields a newer writer appended. ReadBands replaces the bands by what it
    // reads; on damaged input it leaves the model empty and returns false.
    void WriteBands(DataBuffer& buffer) const;
    bool ReadBands(DataBuffer& buffer);
    // Bands stored for a client area of `from` pixels: where the current client area is more
    // than twice as large or less than half as large along a band's axis, the band's thickness
    // scales by the ratio, so that a layout keeps its proportions on a very different frame.
    void FitBands(const TamSize& from);

    LayoutPane* FindPane(const SString& name) const;
    size_t GetPaneCount() const { return m_aNames.size(); }
    size_t GetBandCount() const { return m_aBands.size(); }
    // Bands in dock order, outermost first; the bands of one edge in this order are the
    // edge's list, outermost first.
    const LayoutBand& GetBand(size_t i) const { return m_aBands[i]; }

private:
    void Refresh();
    void WriteNode(const LayoutNode& node, DataBuffer& buffer) const;
    std::unique_ptr<LayoutNode> ReadNode(DataBuffer& buffer, int32_t depth, int32_t& budget);
    std::unique_ptr<LayoutNode> NewLeaf(const SString& name, const TamSize& minSize96);
    std::unique_ptr<LayoutNode>& SlotOf(LayoutNode* node);
    // The bounds of a node's leaves in the last layout.
    static CRectangle NodeRect(const LayoutNode& node);
    bool PlaceDivider(LayoutDivider divider, int32_t pos);

    TamSize m_aClient;
    int32_t m_nDpi;
    TamPoint m_aOrigin;
    std::vector<LayoutBand> m_aBands;
    std::map<SString, LayoutPane*> m_aNames;
    LayoutSolution m_aSolution;
};

} // namespace vesk
