#pragma once

#include <vesk/docking/DockElement.hpp>

namespace vesk {

// A split of the layout: a left (or upper) and a right (or lower) child, either of which may
// be missing, and the share of the holder's extent, less one divider, that the left child takes.
class VESK_API HolderElement : public DockElement {
public:
    HolderElement() = default;
    // The holder of a container: its depth, a docked pane element or a holder for each part,
    // then the rectangle and fraction from the children.
    explicit HolderElement(const DockPaneContainer* container);
    // A holder of two elements (either may be null) at depth `depth`, taken over.
    HolderElement(std::unique_ptr<DockElement> left, std::unique_ptr<DockElement> right, int32_t depth);
    // Copies the children (deeply) and the fraction as well.
    HolderElement(const HolderElement& e, bool copyRelations = true);

    DockElementType GetType() const override { return DET_HOLDER; }
    SString GetTitle() const override { return "Holder"; }
    // "Holder: ", then "L(id)" and " R(id)" for the children with a non-empty identifier.
    SString GetIdentifier() const override;
    // The base text, ", LeftFract=0.500Hor" (or Ver), then each child's text on a line of its
    // own, indented by depth * 4 + 4 blanks, or the NULL forms "\n L=NULL" and "\n R = NULL".
    SString GetStr() const override;
    ERRCODE WriteToDataBuffer(DataBuffer& buffer) const override;
    std::unique_ptr<DockElement> Duplicate(bool copyRelations) const override;
    bool DockDepthFirst(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length) override;
    bool DockLeftMost(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length) override;
    const DockPaneElement* FindClosestDockPane(const DockNameSet& wanted, const DockNameSet& done) const override;
    // Sizes the pane child from the fraction and gives the other child the rest, so the rounding
    // goes to the side that is not a pane; then the holder children do the same.
    void ScaleChildsToFract() override;
    void ScaleRect(double fx, double fy) override;
    // Floats both children; true when both floated.
    bool Float() override;
    NeighbourType CheckIfOuterNeighbourOfEl(const DockElement* el, const DockElementVec& elements) const override;
    void RefreshRect() override;
    void RefreshRectStatic() override;
    void WindowToIndex(const Link& link) override;
    void IndexToWindow(const Link& link) override;
    // False without children; otherwise whether every child's panes exist.
    bool WindowsExist() const override;
    void SetNDepth(int32_t depth) override;
    DockElement* RemoveOrphanShells() override;

    // Whether the children lie side by side (a missing child counts as the empty rectangle).
    bool IsHorizontal() const;
    // The pixels `child` gets: (E - D) * leftFract for the left child, (E - D) * (1 - leftFract)
    // for the right one, E / 2 for any other element, rounded; 0 when E < D. E is the width of
    // a horizontal holder, else its height. Lengths beyond 32 bits saturate.
    int32_t GetSideLenInPixel(const DockElement* child) const;
    // Sets the fraction from a left and a right rectangle as CalcRect does.
    void CalcFract(const CRectangle& left, const CRectangle& right);

    DockElement* GetLeft() const { return m_pLeft.get(); }
    DockElement* GetRight() const { return m_pRight.get(); }
    double GetLeftFract() const { return m_fLeftFract; }
    void SetLeftFract(double fract) { m_fLeftFract = fract; }
    // Takes a child out, leaving its place empty.
    std::unique_ptr<DockElement> ReleaseChild(int i);

protected:
    ERRCODE ReadFromDataBuffer(DataBuffer& buffer) override;
    // The union of the children's rectangles, and the fraction from them.
    void CalcRect() override;

private:
    void AdoptChildren();
    // Docks the first pane of the holder when it is not done, then the right part's first pane
    // into it, so that the two cover the two parts.
    bool SplitOff(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length) const;
    // The left part's share of `whole` less one divider; a half when either part is empty, the
    // whole has no width or no room is left.
    static double FractOf(const CRectangle& left, const CRectangle& right, const CRectangle& whole, bool horizontal);

    std::unique_ptr<DockElement> m_pLeft;
    std::unique_ptr<DockElement> m_pRight;
    double m_fLeftFract = 0.5;
};

} // namespace vesk
