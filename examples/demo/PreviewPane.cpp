#include "PreviewPane.hpp"

#include <algorithm>
#include <filesystem>

using namespace vesk;

namespace demo {

namespace {
constexpr int32_t kBorder = 2;
}

PreviewPane::~PreviewPane()
{
    if (m_pAnimation)
        m_pAnimation->Stop();
}

bool PreviewPane::CreateChildren(const std::string& scratch)
{
    m_aScratch = scratch;
    m_pAnimation = std::make_unique<AnimatedGif>(this, kBorder, TamPoint(8, TITLE_HEIGHT + 8));
    return m_pAnimation->GetHandle() != nullptr;
}

void PreviewPane::Clear()
{
    if (m_pAnimation) {
        m_pAnimation->Stop();
        m_pAnimation->GetCWnd()->ShowWindow(SW_HIDE);
    }
    m_bAnimation = false;
    m_aPicture = Bitmap();
    m_aScaled = Bitmap();
    m_aName.clear();
    Invalidate();
}

bool PreviewPane::Show(const PictureFile& file, TamSize& pictureSize, std::string& error)
{
    Clear();
    pictureSize = TamSize(0, 0);
    m_aName = file.name;
    std::string lower = file.name;
    std::transform(lower.begin(), lower.end(), lower.begin(), [](unsigned char c) { return std::tolower(c); });
    if (lower.size() > 4 && lower.compare(lower.size() - 4, 4, ".gif") == 0)
        return ShowAnimation(file, pictureSize, error);

    Bitmap picture;
    picture.Load(DirEntry(SString(file.path.c_str())));
    if (picture.Empty()) {
        error = "cannot read the picture " + file.name;
        return false;
    }
    m_aPicture = picture;
    pictureSize = picture.GetSize();
    return true;
}

bool PreviewPane::ShowAnimation(const PictureFile& file, TamSize& pictureSize, std::string& error)
{
    // The animation window reads "<name>.anm" beside the entry it is given: give it an entry
    // in the scratch folder and put the copy there.
    const std::filesystem::path copy = std::filesystem::path(m_aScratch) / file.name;
    std::error_code ec;
    std::filesystem::copy_file(file.path, std::filesystem::path(copy).replace_extension(".anm"),
                               std::filesystem::copy_options::overwrite_existing, ec);
    if (ec || !m_pAnimation) {
        error = "cannot copy the animation " + file.name + " to " + m_aScratch;
        return false;
    }
    if (!m_pAnimation->Load(DirEntry(SString(copy.c_str())))) {
        error = "cannot read the animation " + file.name;
        return false;
    }
    GifAnimation& gif = m_pAnimation->GetAnimation();
    pictureSize = TamSize(gif.GetScreenWidth(), gif.GetScreenHeight());
    m_bAnimation = true;
    Arrange();
    m_pAnimation->GetCWnd()->ShowWindow(SW_SHOW);
    m_pAnimation->Play();
    return true;
}

CRectangle PreviewPane::AnimationBox()
{
    if (!m_bAnimation)
        return CRectangle(0, 0, -1, -1);
    const CRectangle box = m_pAnimation->GetCWnd()->GetWindowRect();
    const CRectangle pane = Wnd().GetWindowRect();
    return CRectangle(box.Left() - pane.Left(), box.Top() - pane.Top(), box.Right() - pane.Left(),
                      box.Bottom() - pane.Top());
}

void PreviewPane::Arrange()
{
    if (!m_bAnimation)
        return;
    const TamSize pane = Wnd().GetClientSize();
    const CRectangle box = m_pAnimation->GetCWnd()->GetWindowRect();
    const int32_t w = box.Right() - box.Left(), h = box.Bottom() - box.Top();
    const int32_t x = std::max(0, (pane.Width() - w) / 2);
    const int32_t y = std::max(TITLE_HEIGHT, TITLE_HEIGHT + (pane.Height() - TITLE_HEIGHT - h) / 2);
    m_pAnimation->GetCWnd()->MoveWindow(x, y, w, h);
}

void PreviewPane::OnProcessMsg(uint32_t message, WParam wParam, LParam lParam)
{
    if (message == WM_SIZE)
        Arrange();
    Pane::OnProcessMsg(message, wParam, lParam);
}

void PreviewPane::Render(OutputDevice& dev, const TamSize& size)
{
    const int32_t top = DrawFrame(dev, size);
    if (m_aPicture.Empty()) {
        if (!m_bAnimation)
            DrawLine(dev, 8, top, m_aName.empty() ? "Select a picture" : m_aName + " cannot be shown",
                     TamColor(0x707070u));
        return;
    }
    const TamSize room(size.Width() - 16, size.Height() - top - 8);
    const TamSize pic = m_aPicture.GetSize();
    if (room.Width() < 1 || room.Height() < 1 || pic.Width() < 1 || pic.Height() < 1)
        return;
    // Fit inside the room without enlarging beyond twice the picture's own size.
    const double scale = std::min({room.Width() / double(pic.Width()), room.Height() / double(pic.Height()), 2.0});
    const FSize fit(std::max(1.0, pic.Width() * scale), std::max(1.0, pic.Height() * scale));
    const TamSize want(static_cast<int32_t>(fit.width), static_cast<int32_t>(fit.height));
    if (m_aScaled.Empty() || m_aScaled.GetSize().Width() != want.Width() || m_aScaled.GetSize().Height() != want.Height())
        m_aScaled = m_aPicture.StretchHQ(fit);
    dev.DrawBitmap(TamPoint(8 + (room.Width() - want.Width()) / 2, top + (room.Height() - want.Height()) / 2), m_aScaled);
}

} // namespace demo
