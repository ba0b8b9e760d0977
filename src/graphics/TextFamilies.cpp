#include "graphics/TextCache_p.hpp"

#include <algorithm>

namespace vesk {
namespace {

// Heights offered for scalable faces: the usual ladder of font dialogs.
constexpr int32_t kScalableSizes[] = {8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 72};

// The pixel heights of a family's faces; bitmap faces list theirs, a scalable one has none.
std::vector<int32_t> FamilySizes(PangoFontFamily* family)
{
    PangoFontFace** faces = nullptr;
    int nFaces = 0;
    pango_font_family_list_faces(family, &faces, &nFaces);
    std::vector<int32_t> sizes;
    bool scalable = nFaces == 0;
    for (int i = 0; i < nFaces && !scalable; ++i) {
        int* list = nullptr;
        int n = 0;
        pango_font_face_list_sizes(faces[i], &list, &n);
        scalable = list == nullptr;
        for (int k = 0; k < n; ++k)
            sizes.push_back(PANGO_PIXELS(list[k]));
        g_free(list);
    }
    g_free(faces);
    if (scalable)
        return {std::begin(kScalableSizes), std::end(kScalableSizes)};
    std::sort(sizes.begin(), sizes.end());
    sizes.erase(std::unique(sizes.begin(), sizes.end()), sizes.end());
    return sizes;
}

} // namespace

const std::vector<TextCache::Family>& TextCache::GetFamilies()
{
    if (m_bHaveFamilies)
        return m_aFamilies;
    PangoFontFamily** families = nullptr;
    int n = 0;
    pango_context_list_families(m_pContext, &families, &n);
    for (int i = 0; i < n; ++i)
        m_aFamilies.push_back({pango_font_family_get_name(families[i]), FamilySizes(families[i])});
    g_free(families);
    std::sort(m_aFamilies.begin(), m_aFamilies.end(),
              [](const Family& a, const Family& b) { return a.name < b.name; });
    m_bHaveFamilies = true;
    return m_aFamilies;
}

PangoFontMetrics* TextCache::GetMetrics(cairo_t* cr)
{
    EnsureDescriptions();
    PrepareContext(cr, false);
    return pango_context_get_metrics(m_pContext, m_pPlainDesc, nullptr);
}

} // namespace vesk
