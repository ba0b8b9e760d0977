// A holder: two children, their rectangle and the fraction the left one takes.
#include <vesk/docking/HolderElement.hpp>
#include <vesk/docking/PaneElement.hpp>

#include "docking/DockElement_p.hpp"

#include <algorithm>
#include <cmath>
#include <string>

namespace vesk {

namespace {

// How CalcRect sees a missing child.
const CRectangle kMissingChild(0, 0, 10, 10);

// trunc(v) in 32 bits; NaN gives 0, values beyond the range saturate.
int32_t Trunc32(double v)
{
    if (std::isnan(v))
        return 0;
    if (v >= 2147483647.0)
        return INT32_MAX;
    if (v <= -2147483648.0)
        return INT32_MIN;
    return static_cast<int32_t>(v);
}

int32_t Clamp32(int64_t v)
{
    return static_cast<int32_t>(std::clamp<int64_t>(v, INT32_MIN, INT32_MAX));
}

std::unique_ptr<DockElement> PartOf(DockablePane* pane, const DockPaneContainer* container)
{
    if (pane)
        return std::make_unique<DockPaneElement>(pane);
    if (container)
        return std::make_unique<HolderElement>(container);
    return nullptr;
}

// Gives `el` the extent `length` along the holder's axis, keeping its left or top edge.
void SetExtent(DockElement* el, bool horizontal, int64_t length)
{
    if (!el)
        return;
    CRectangle r = el->GetRect();
    if (horizontal)
        r.Right() = Clamp32(r.Left() + length);
    else
        r.Bottom() = Clamp32(r.Top() + length);
    el->SetRect(r);
}

} // namespace

HolderElement::HolderElement(const DockPaneContainer* container)
{
    if (!container)
        return;
    m_nDepth = container->GetDepth();
    m_pLeft = PartOf(container->GetLeftPane(), container->GetLeftContainer());
    m_pRight = PartOf(container->GetRightPane(), container->GetRightContainer());
    CalcRect();
    AdoptChildren();
    CalcRect();
}

HolderElement::HolderElement(std::unique_ptr<DockElement> left, std::unique_ptr<DockElement> right, int32_t depth)
    : m_pLeft(std::move(left)), m_pRight(std::move(right))
{
    m_nDepth = depth;
    CalcRect();
    AdoptChildren();
    CalcRect();
}

HolderElement::HolderElement(const HolderElement& e, bool copyRelations)
    : DockElement(e, copyRelations), m_fLeftFract(e.m_fLeftFract)
{
    if (e.m_pLeft)
        m_pLeft = e.m_pLeft->Duplicate(copyRelations);
    if (e.m_pRight)
        m_pRight = e.m_pRight->Duplicate(copyRelations);
    AdoptChildren();
}

void HolderElement::AdoptChildren()
{
    for (DockElement* child : {m_pLeft.get(), m_pRight.get()}) {
        if (child)
            child->SetParent(this);
    }
}

std::unique_ptr<DockElement> HolderElement::ReleaseChild(int i)
{
    std::unique_ptr<DockElement> child = std::move(i == 0 ? m_pLeft : m_pRight);
    if (child)
        child->SetParent(nullptr);
    return child;
}

SString HolderElement::GetIdentifier() const
{
    std::string id("Holder: ");
    const SString left = m_pLeft ? m_pLeft->GetIdentifier() : SString();
    const SString right = m_pRight ? m_pRight->GetIdentifier() : SString();
    if (left.Len() != 0)
        id.append("L(").append(static_cast<const char*>(left)).append(")");
    if (right.Len() != 0)
        id.append(" R(").append(static_cast<const char*>(right)).append(")");
    return SString(id.c_str());
}

SString HolderElement::GetStr() const
{
    SString text = DockElement::GetStr();
    text += SString::F(", LeftFract=%2.3f", m_fLeftFract);
    text += IsHorizontal() ? "Hor" : "Ver";
    const int64_t blanks = std::clamp<int64_t>(int64_t(m_nDepth) * 4 + 4, 0, STRING_MAXLEN);
    const SString indent(std::string(size_t(blanks), ' ').c_str());
    // The two missing-child forms differ in their spacing; dumps keep them so.
    if (m_pLeft) {
        text += "\n";
        text += indent;
        text += " L = ";
        text += m_pLeft->GetStr();
    } else {
        text += "\n L=NULL";
    }
    if (m_pRight) {
        text += "\n";
        text += indent;
        text += " R = ";
        text += m_pRight->GetStr();
    } else {
        text += "\n R = NULL";
    }
    return text;
}

ERRCODE HolderElement::WriteToDataBuffer(DataBuffer& buffer) const
{
    DockElement::WriteToDataBuffer(buffer);
    // A missing child writes no flag at all, while the reader reads a flag for each child: a
    // holder with a missing child does not read back as written. The library's own layouts
    // always have both children, and stored layouts depend on this form.
    for (const DockElement* child : {m_pLeft.get(), m_pRight.get()}) {
        if (child) {
            buffer.WriteByte(1);
            child->WriteToDataBuffer(buffer);
        }
    }
    LocalSizedWrite section(buffer);
    buffer.WriteDouble(m_fLeftFract);
    return ERR_OK;
}

ERRCODE HolderElement::ReadFromDataBuffer(DataBuffer& buffer)
{
    DockElement::ReadFromDataBuffer(buffer);
    for (std::unique_ptr<DockElement>* child : {&m_pLeft, &m_pRight}) {
        uint8_t flag = 0;
        buffer.ReadByte(flag);
        if (flag != 0)
            *child = CreateFromDataBuffer(buffer);
    }
    AdoptChildren();
    LocalSizedRead section(buffer);
    buffer.ReadDouble(m_fLeftFract);
    return ERR_OK;
}

std::unique_ptr<DockElement> HolderElement::Duplicate(bool copyRelations) const
{
    return std::make_unique<HolderElement>(*this, copyRelations);
}

bool HolderElement::IsHorizontal() const
{
    const CRectangle left = m_pLeft ? m_pLeft->GetRect() : CRectangle();
    const CRectangle right = m_pRight ? m_pRight->GetRect() : CRectangle();
    const NeighbourType type = DetNeighbourType(left, right);
    return type == NT_LEFT || type == NT_RIGHT;
}

void HolderElement::CalcRect()
{
    if (m_pLeft) {
        m_aRect = m_pLeft->GetRect();
        if (m_pRight)
            m_aRect.Union(m_pRight->GetRect());
    } else if (m_pRight) {
        m_aRect = m_pRight->GetRect();
    }
    m_fLeftFract = FractOf(m_pLeft ? m_pLeft->GetRect() : kMissingChild, m_pRight ? m_pRight->GetRect() : kMissingChild,
                           m_aRect, IsHorizontal());
}

void HolderElement::CalcFract(const CRectangle& left, const CRectangle& right)
{
    const NeighbourType type = DetNeighbourType(left, right);
    m_fLeftFract = FractOf(left, right, left.GetUnion(right), type == NT_LEFT || type == NT_RIGHT);
}

double HolderElement::FractOf(const CRectangle& left, const CRectangle& right, const CRectangle& whole,
                              bool horizontal)
{
    // The width is tested for vertical holders too; the orientation only picks the extents.
    if (left.IsEmpty() || right.IsEmpty() || RectWidth(whole) <= 0)
        return 0.5;
    const int64_t part = horizontal ? RectWidth(left) : RectHeight(left);
    const int64_t room = (horizontal ? RectWidth(whole) : RectHeight(whole)) - GetDividerWidth();
    // A holder exactly one divider wide has no room to share: the fraction stays a half.
    return room != 0 ? double(part) / double(room) : 0.5;
}

int32_t HolderElement::GetSideLenInPixel(const DockElement* child) const
{
    const int64_t extent = IsHorizontal() ? RectWidth(m_aRect) : RectHeight(m_aRect);
    const int64_t d = GetDividerWidth();
    if (extent < d)
        return 0;
    if (child && child == m_pLeft.get())
        return Trunc32(double(extent - d) * m_fLeftFract + 0.5);
    if (child && child == m_pRight.get())
        return Trunc32(double(extent - d) * (1.0 - m_fLeftFract) + 0.5);
    return Trunc32(double(extent) * 0.5 + 0.5);
}

void HolderElement::ScaleChildsToFract()
{
    const bool horizontal = IsHorizontal();
    const int64_t extent = horizontal ? RectWidth(m_aRect) : RectHeight(m_aRect);
    const int64_t d = GetDividerWidth();
    // The pane child gets its rounded share; the other child takes the rest.
    auto* pane = dynamic_cast<DockPaneElement*>(m_pLeft.get());
    DockElement* other = m_pRight.get();
    if (!pane) {
        pane = dynamic_cast<DockPaneElement*>(m_pRight.get());
        other = m_pLeft.get();
    }
    if (pane) {
        const int32_t length = GetSideLenInPixel(pane);
        if (pane->GetPane())
            pane->GetPane()->SetSizeInContainer(length);
        SetExtent(pane, horizontal, length);
        SetExtent(other, horizontal, extent - length - d);
    }
    for (DockElement* child : {m_pLeft.get(), m_pRight.get()}) {
        if (child && child->GetType() == DET_HOLDER)
            child->ScaleChildsToFract();
    }
}

void HolderElement::ScaleRect(double fx, double fy)
{
    m_aRect.Scale(fx, fy);
    for (DockElement* child : {m_pLeft.get(), m_pRight.get()}) {
        if (!child)
            continue;
        if (child->GetType() == DET_HOLDER) {
            child->ScaleRect(fx, fy);
        } else {
            CRectangle r = child->GetRect();
            r.Scale(fx, fy);
            child->SetRect(r);
        }
    }
}

bool HolderElement::Float()
{
    const bool left = m_pLeft && m_pLeft->Float();
    const bool right = m_pRight && m_pRight->Float();
    return left && right;
}

NeighbourType HolderElement::CheckIfOuterNeighbourOfEl(const DockElement* el, const DockElementVec& elements) const
{
    return OuterSide(el, elements);
}

void HolderElement::RefreshRect()
{
    for (DockElement* child : {m_pLeft.get(), m_pRight.get()}) {
        if (child)
            child->RefreshRect();
    }
    CalcRect();
}

void HolderElement::RefreshRectStatic()
{
    for (DockElement* child : {m_pLeft.get(), m_pRight.get()}) {
        if (child)
            child->RefreshRectStatic();
    }
    CalcRect();
}

void HolderElement::WindowToIndex(const Link& link)
{
    for (DockElement* child : {m_pLeft.get(), m_pRight.get()}) {
        if (child)
            child->WindowToIndex(link);
    }
}

void HolderElement::IndexToWindow(const Link& link)
{
    for (DockElement* child : {m_pLeft.get(), m_pRight.get()}) {
        if (child)
            child->IndexToWindow(link);
    }
}

bool HolderElement::WindowsExist() const
{
    if (!m_pLeft && !m_pRight)
        return false;
    return (!m_pLeft || m_pLeft->WindowsExist()) && (!m_pRight || m_pRight->WindowsExist());
}

void HolderElement::SetNDepth(int32_t depth)
{
    m_nDepth = depth;
    for (DockElement* child : {m_pLeft.get(), m_pRight.get()}) {
        if (child)
            child->SetNDepth(depth + 1);
    }
}

} // namespace vesk
