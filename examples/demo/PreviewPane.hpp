#pragma once

#include "FolderPane.hpp"

#include <memory>
#include <string>

namespace demo {

// The selected picture, scaled to fit the pane with its proportions kept; GIF files play in
// an animation window centred in the pane.
class PreviewPane : public Pane
{
public:
    PreviewPane() : Pane("Preview", true) {}
    ~PreviewPane() override;

    // Makes the animation window once the pane exists; `scratch` is a writable folder for the
    // copies the animation window reads.
    bool CreateChildren(const std::string& scratch);
    // Shows the file; false with `error` set when it cannot be read. `pictureSize` is the
    // size of the picture (of the animation's logical screen for a GIF).
    bool Show(const PictureFile& file, vesk::TamSize& pictureSize, std::string& error);
    void Clear();
    bool HasPicture() const { return !m_aPicture.Empty(); }
    bool IsAnimating() const { return m_pAnimation && m_pAnimation->IsPlaying(); }
    // The animation window while one is shown, else null; its box within the pane.
    vesk::AnimatedGif* Animation() const { return m_bAnimation ? m_pAnimation.get() : nullptr; }
    vesk::CRectangle AnimationBox();
    // Re-centres the animation after the pane changed size.
    void Arrange();

    void Render(vesk::OutputDevice& dev, const vesk::TamSize& size) override;

protected:
    // Keeps the animation centred whenever the docking manager resizes the pane.
    void OnProcessMsg(uint32_t message, vesk::WParam wParam, vesk::LParam lParam) override;

private:
    bool ShowAnimation(const PictureFile& file, vesk::TamSize& pictureSize, std::string& error);

    std::string m_aScratch;
    std::unique_ptr<vesk::AnimatedGif> m_pAnimation;
    bool m_bAnimation = false;
    vesk::Bitmap m_aPicture;
    vesk::Bitmap m_aScaled; // m_aPicture fitted to the pane as last drawn
    std::string m_aName;
};

} // namespace demo
