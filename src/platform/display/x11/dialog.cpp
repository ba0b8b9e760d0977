#include "platform/display/x11/dialog.hpp"

#include <vesk/frame/WinMessages.hpp>
#include "platform/display/MessageBoxButtons.hpp"
#include "platform/display/x11/backend.hpp"
#include "platform/display/x11/properties.hpp"

#include <cairo-xcb.h>
#include <pango/pangocairo.h>

#include <algorithm>
#include <cstdlib>

namespace vesk::display::x11 {

namespace {

constexpr int32_t kPadding = 16;
constexpr int32_t kButtonWidth = 84;
constexpr int32_t kButtonHeight = 26;
constexpr int32_t kButtonGap = 8;
constexpr int32_t kMaxTextWidth = 420;
constexpr const char* kFont = "Sans 10";

const char* Label(int result)
{
    switch (result) {
    case IDOK: return "OK";
    case IDCANCEL: return "Cancel";
    case IDABORT: return "Abort";
    case IDRETRY: return "Retry";
    case IDIGNORE: return "Ignore";
    case IDYES: return "Yes";
    case IDNO: return "No";
    case IDTRYAGAIN: return "Try Again";
    default: return "Continue";
    }
}

// A dialog window of its own on the backend's connection; the window procedure never sees it.
class Dialog
{
public:
    Dialog(Connection& connection, Keymap* keymap, std::vector<int> buttons, int focus)
        : m_connection(connection), m_keymap(keymap), m_buttons(std::move(buttons)), m_focus(focus)
    {
    }
    ~Dialog();

    bool Open(xcb_window_t owner, const WindowBox& ownerBox, const std::string& text, const std::string& caption);
    xcb_window_t Id() const { return m_id; }
    // Takes an event of the dialog's window.
    void Handle(const xcb_generic_event_t* event);
    // The button chosen, 0 while none is.
    int Result() const { return m_result; }

private:
    void Paint();
    int ButtonAt(int32_t x, int32_t y) const;
    // Escape and the close button: Cancel, or OK when it is the only button; nothing for
    // boxes that must be answered.
    void Dismiss();

    Connection& m_connection;
    Keymap* m_keymap;
    std::vector<int> m_buttons;
    int m_focus;
    int m_pressed = -1;
    int m_result = 0;
    xcb_window_t m_id = XCB_NONE;
    int32_t m_width = 0, m_height = 0;
    PangoLayout* m_layout = nullptr;
    cairo_surface_t* m_surface = nullptr;
};

Dialog::~Dialog()
{
    if (m_surface) {
        cairo_surface_finish(m_surface);
        cairo_surface_destroy(m_surface);
    }
    if (m_layout)
        g_object_unref(m_layout);
    if (m_id != XCB_NONE) {
        xcb_destroy_window(m_connection.Xcb(), m_id);
        xcb_flush(m_connection.Xcb());
    }
}

bool Dialog::Open(xcb_window_t owner, const WindowBox& ownerBox, const std::string& text, const std::string& caption)
{
    // The text decides the size: wrapped at a readable width, never narrower than the buttons.
    cairo_surface_t* scratch = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 1, 1);
    cairo_t* cr = cairo_create(scratch);
    m_layout = pango_cairo_create_layout(cr);
    cairo_destroy(cr);
    cairo_surface_destroy(scratch);
    PangoFontDescription* font = pango_font_description_from_string(kFont);
    pango_layout_set_font_description(m_layout, font);
    pango_font_description_free(font);
    pango_layout_set_width(m_layout, kMaxTextWidth * PANGO_SCALE);
    pango_layout_set_wrap(m_layout, PANGO_WRAP_WORD_CHAR);
    pango_layout_set_text(m_layout, text.c_str(), static_cast<int>(text.size()));
    int textWidth = 0, textHeight = 0;
    pango_layout_get_pixel_size(m_layout, &textWidth, &textHeight);
    auto count = static_cast<int32_t>(m_buttons.size());
    int32_t rowWidth = count * kButtonWidth + (count - 1) * kButtonGap;
    m_width = std::max(textWidth, rowWidth) + 2 * kPadding;
    m_height = textHeight + 3 * kPadding + kButtonHeight;

    const xcb_screen_t* screen = m_connection.Screen();
    WindowBox around = owner != XCB_NONE ? ownerBox
                                         : WindowBox{0, 0, screen->width_in_pixels, screen->height_in_pixels};
    WindowRecord record;
    record.id = m_id = xcb_generate_id(m_connection.Xcb());
    record.kind = WindowKind::TopLevel;
    record.parent = owner;
    record.x = std::max((around.left + around.right - m_width) / 2, 0);
    record.y = std::max((around.top + around.bottom - m_height) / 2, 0);
    record.width = m_width;
    record.height = m_height;
    uint32_t values[] = {screen->white_pixel,
                         XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_KEY_PRESS
                             | XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE};
    xcb_create_window(m_connection.Xcb(), XCB_COPY_FROM_PARENT, m_id, m_connection.Root(),
                      static_cast<int16_t>(record.x), static_cast<int16_t>(record.y), static_cast<uint16_t>(m_width),
                      static_cast<uint16_t>(m_height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
    InitTopLevelProperties(m_connection, record, caption);
    if (owner == XCB_NONE) // an owned window is a dialog already; a free-standing box says so too
        if (xcb_ewmh_connection_t& ewmh = m_connection.Ewmh(); ewmh.connection)
            xcb_ewmh_set_wm_window_type(&ewmh, m_id, 1, &ewmh._NET_WM_WINDOW_TYPE_DIALOG);
    m_surface = cairo_xcb_surface_create(m_connection.Xcb(), m_id, m_connection.Visual(), m_width, m_height);
    xcb_map_window(m_connection.Xcb(), m_id);
    xcb_flush(m_connection.Xcb());
    return !m_connection.Broken();
}

void Dialog::Paint()
{
    cairo_t* cr = cairo_create(m_surface);
    cairo_push_group(cr); // drawn whole, then shown at once
    cairo_set_source_rgb(cr, 0.94, 0.94, 0.94);
    cairo_paint(cr);
    cairo_set_source_rgb(cr, 0, 0, 0);
    cairo_move_to(cr, kPadding, kPadding);
    pango_cairo_show_layout(cr, m_layout);
    PangoLayout* label = pango_layout_copy(m_layout);
    pango_layout_set_width(label, -1);
    pango_layout_set_alignment(label, PANGO_ALIGN_LEFT);
    auto count = static_cast<int>(m_buttons.size());
    for (int i = 0; i < count; ++i) {
        WindowBox box = DialogButtonBox(m_width, m_height, i, count);
        double shade = i == m_pressed ? 0.78 : 0.99;
        cairo_set_source_rgb(cr, shade, shade, shade);
        cairo_rectangle(cr, box.left, box.top, box.right - box.left, box.bottom - box.top);
        cairo_fill_preserve(cr);
        cairo_set_line_width(cr, i == m_focus ? 2 : 1);
        cairo_set_source_rgb(cr, 0.3, 0.3, 0.3);
        cairo_stroke(cr);
        pango_layout_set_text(label, Label(m_buttons[i]), -1);
        int labelWidth = 0, labelHeight = 0;
        pango_layout_get_pixel_size(label, &labelWidth, &labelHeight);
        cairo_set_source_rgb(cr, 0, 0, 0);
        cairo_move_to(cr, box.left + (box.right - box.left - labelWidth) / 2,
                      box.top + (box.bottom - box.top - labelHeight) / 2);
        pango_cairo_show_layout(cr, label);
    }
    g_object_unref(label);
    cairo_pop_group_to_source(cr);
    cairo_paint(cr);
    cairo_destroy(cr);
    cairo_surface_flush(m_surface);
    xcb_flush(m_connection.Xcb());
}

int Dialog::ButtonAt(int32_t x, int32_t y) const
{
    auto count = static_cast<int>(m_buttons.size());
    for (int i = 0; i < count; ++i) {
        WindowBox box = DialogButtonBox(m_width, m_height, i, count);
        if (x >= box.left && x < box.right && y >= box.top && y < box.bottom)
            return i;
    }
    return -1;
}

void Dialog::Dismiss()
{
    if (std::find(m_buttons.begin(), m_buttons.end(), IDCANCEL) != m_buttons.end())
        m_result = IDCANCEL;
    else if (m_buttons.size() == 1)
        m_result = m_buttons[0];
}

void Dialog::Handle(const xcb_generic_event_t* event)
{
    auto count = static_cast<int>(m_buttons.size());
    switch (event->response_type & 0x7F) {
    case XCB_EXPOSE:
        Paint();
        break;
    case XCB_MAP_NOTIFY:
        xcb_set_input_focus(m_connection.Xcb(), XCB_INPUT_FOCUS_PARENT, m_id, XCB_CURRENT_TIME);
        break;
    case XCB_KEY_PRESS: {
        const auto& key = *reinterpret_cast<const xcb_key_press_event_t*>(event);
        if (!m_keymap)
            break;
        m_keymap->SetState(key.state);
        uint16_t vk = m_keymap->VirtualKey(key.detail);
        bool shift = key.state & XCB_MOD_MASK_SHIFT;
        if (vk == VK_RETURN || vk == VK_SPACE)
            m_result = m_buttons[m_focus];
        else if (vk == VK_ESCAPE)
            Dismiss();
        else if (vk == VK_RIGHT || (vk == VK_TAB && !shift))
            m_focus = (m_focus + 1) % count;
        else if (vk == VK_LEFT || vk == VK_TAB)
            m_focus = (m_focus + count - 1) % count;
        Paint();
        break;
    }
    case XCB_BUTTON_PRESS:
    case XCB_BUTTON_RELEASE: {
        const auto& button = *reinterpret_cast<const xcb_button_press_event_t*>(event);
        if (button.detail != 1)
            break;
        int at = ButtonAt(button.event_x, button.event_y);
        // A button answers when pressed and released on it.
        if ((event->response_type & 0x7F) == XCB_BUTTON_PRESS) {
            m_pressed = at;
            if (at >= 0)
                m_focus = at;
        } else {
            if (at >= 0 && at == m_pressed)
                m_result = m_buttons[at];
            m_pressed = -1;
        }
        Paint();
        break;
    }
    case XCB_CLIENT_MESSAGE: {
        const auto& message = *reinterpret_cast<const xcb_client_message_event_t*>(event);
        if (message.type == m_connection.Atom().wmProtocols
            && message.data.data32[0] == m_connection.Atom().wmDeleteWindow)
            Dismiss();
        break;
    }
    default:
        break;
    }
}

// The window an event is about, for the events the dialog takes.
xcb_window_t EventWindow(const xcb_generic_event_t* event)
{
    switch (event->response_type & 0x7F) {
    case XCB_EXPOSE: return reinterpret_cast<const xcb_expose_event_t*>(event)->window;
    case XCB_MAP_NOTIFY: return reinterpret_cast<const xcb_map_notify_event_t*>(event)->window;
    case XCB_KEY_PRESS:
    case XCB_KEY_RELEASE:
    case XCB_BUTTON_PRESS:
    case XCB_BUTTON_RELEASE:
    case XCB_MOTION_NOTIFY: return reinterpret_cast<const xcb_key_press_event_t*>(event)->event;
    case XCB_CLIENT_MESSAGE: return reinterpret_cast<const xcb_client_message_event_t*>(event)->window;
    default: return XCB_NONE;
    }
}

bool IsInput(const xcb_generic_event_t* event)
{
    uint8_t type = event->response_type & 0x7F;
    return type >= XCB_KEY_PRESS && type <= XCB_LEAVE_NOTIFY;
}

} // namespace

WindowBox DialogButtonBox(int32_t dialogWidth, int32_t dialogHeight, int index, int count)
{
    int32_t right = dialogWidth - kPadding - (count - 1 - index) * (kButtonWidth + kButtonGap);
    int32_t bottom = dialogHeight - kPadding;
    return {right - kButtonWidth, bottom - kButtonHeight, right, bottom};
}

int X11Backend::MessageBox(NativeWindow owner, const std::string& text, const std::string& caption, uint32_t type)
{
    std::vector<int> buttons = MessageBoxButtons(type);
    int focus = DefaultButtonIndex(type, buttons.size());
    std::shared_ptr<WindowRecord> ownerRecord = Find(owner);
    Dialog dialog(*m_connection, m_keymap.get(), std::move(buttons), focus);
    if (m_connection->Broken()
        || !dialog.Open(ownerRecord ? ownerRecord->id : XCB_NONE, ownerRecord ? GetWindowBox(owner) : WindowBox{},
                        text, caption))
        return 0;
    // A modal loop of its own: the other windows still paint and hear from the server, but
    // take no input until the box is answered. 0 when the server goes away first.
    while (!dialog.Result()) {
        if (!WaitEvents(-1))
            return 0;
        PullEvents();
        std::deque<xcb_generic_event_t*> events;
        {
            std::lock_guard lock(m_queueMutex);
            events.swap(m_queue);
        }
        for (xcb_generic_event_t* event : events) {
            if (EventWindow(event) == dialog.Id())
                dialog.Handle(event);
            else if (!IsInput(event))
                Translate(event, nullptr);
            std::free(event);
        }
        DeliverPaints();
    }
    return dialog.Result();
}

} // namespace vesk::display::x11
