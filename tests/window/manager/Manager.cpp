// A small window manager. A number in a line of its input restores the window that was mapped
// first, as a drag of a title bar does, and as many wishes to be maximised are then ignored (all of
// them for -1). It prints what it does with each wish, a word a line: "ignored" or "granted".

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <poll.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

xcb_connection_t* x = nullptr;
xcb_screen_t* screen = nullptr;
xcb_window_t mainWindow = XCB_NONE;
int leftToIgnore = 0;

xcb_atom_t atom(const std::string& name) {
    const auto length = static_cast<std::uint16_t>(name.size());
    auto* reply = xcb_intern_atom_reply(x, xcb_intern_atom(x, 0, length, name.c_str()), nullptr);
    const xcb_atom_t found = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    std::free(reply);
    return found;
}

struct Atoms {
    xcb_atom_t state = atom("_NET_WM_STATE");
    xcb_atom_t across = atom("_NET_WM_STATE_MAXIMIZED_HORZ");
    xcb_atom_t down = atom("_NET_WM_STATE_MAXIMIZED_VERT");
    xcb_atom_t check = atom("_NET_SUPPORTING_WM_CHECK");
};
const Atoms& atoms() {
    static const Atoms known;
    return known;
}

void tell(const char* word) {
    std::puts(word);
    std::fflush(stdout);
}

void place(xcb_window_t window, const std::array<std::uint32_t, 4>& box) {
    constexpr std::uint16_t all = XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y |
                                  XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT;
    xcb_configure_window(x, window, all, box.data());
}

void note(xcb_window_t window, const std::vector<xcb_atom_t>& states) {
    xcb_change_property(x, XCB_PROP_MODE_REPLACE, window, atoms().state, XCB_ATOM_ATOM, 32,
                        static_cast<std::uint32_t>(states.size()), states.data());
}

void maximise(xcb_window_t window) {
    note(window, {atoms().across, atoms().down});
    place(window, {0, 0, screen->width_in_pixels, screen->height_in_pixels});
}

void restore() {
    note(mainWindow, {});
    place(mainWindow, {60, 40, 800u, 600u});
}

void wish(const xcb_client_message_event_t& message) {
    constexpr std::uint32_t add = 1;
    const auto* data = message.data.data32;
    const bool maximised = data[1] == atoms().down || data[2] == atoms().down;
    if (message.type != atoms().state || message.window != mainWindow || data[0] != add ||
        !maximised)
        return;
    if (leftToIgnore != 0) {
        if (leftToIgnore > 0) --leftToIgnore;
        return tell("ignored");
    }
    maximise(mainWindow);
    tell("granted");
}

bool wantsToBeMaximised(xcb_window_t window) {
    const auto cookie = xcb_get_property(x, 0, window, atoms().state, XCB_ATOM_ATOM, 0, 64);
    auto* reply = xcb_get_property_reply(x, cookie, nullptr);
    if (!reply) return false;
    const auto* states = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply));
    const bool wants = std::count(states, states + reply->value_len, atoms().down) > 0;
    std::free(reply);
    return wants;
}

void map(xcb_window_t window) {
    if (wantsToBeMaximised(window)) {
        mainWindow = window;
        maximise(window);
    }
    xcb_map_window(x, window);
    xcb_set_input_focus(x, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
}

void configure(const xcb_configure_request_event_t& asked) {
    if (asked.window == mainWindow) return;
    place(asked.window, {static_cast<std::uint32_t>(asked.x), static_cast<std::uint32_t>(asked.y),
                         asked.width, asked.height});
}

void answer(xcb_generic_event_t* event) {
    switch (event->response_type & 0x7f) {
        case XCB_MAP_REQUEST:
            map(reinterpret_cast<xcb_map_request_event_t*>(event)->window);
            break;
        case XCB_CONFIGURE_REQUEST:
            configure(*reinterpret_cast<xcb_configure_request_event_t*>(event));
            break;
        case XCB_CLIENT_MESSAGE:
            wish(*reinterpret_cast<xcb_client_message_event_t*>(event));
            break;
        default:
            break;
    }
}

/// Makes this the screen's manager, and says so as desktops do.
void announce() {
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
    xcb_change_window_attributes(x, screen->root, XCB_CW_EVENT_MASK, &events);
    const xcb_window_t own = xcb_generate_id(x);
    xcb_create_window(x, XCB_COPY_FROM_PARENT, own, screen->root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    for (const xcb_window_t window : {screen->root, own})
        xcb_change_property(x, XCB_PROP_MODE_REPLACE, window, atoms().check, XCB_ATOM_WINDOW, 32, 1,
                            &own);
    const std::vector<xcb_atom_t> known{atoms().state, atoms().across, atoms().down};
    xcb_change_property(x, XCB_PROP_MODE_REPLACE, screen->root, atom("_NET_SUPPORTED"),
                        XCB_ATOM_ATOM, 32, static_cast<std::uint32_t>(known.size()), known.data());
}

/// Until the input ends or the screen goes.
void serve() {
    for (;;) {
        while (xcb_generic_event_t* event = xcb_poll_for_event(x)) {
            answer(event);
            std::free(event);
        }
        xcb_flush(x);
        std::array<pollfd, 2> waiting{
            {{STDIN_FILENO, POLLIN, 0}, {xcb_get_file_descriptor(x), POLLIN, 0}}};
        if (::poll(waiting.data(), waiting.size(), -1) < 0 || xcb_connection_has_error(x)) return;
        if (!waiting[0].revents) continue;
        std::array<char, 64> line{};
        if (::read(STDIN_FILENO, line.data(), line.size() - 1) <= 0) return;
        leftToIgnore = std::atoi(line.data());
        restore();
    }
}

}  // namespace

int main() {
    x = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(x)) return 1;
    screen = xcb_setup_roots_iterator(xcb_get_setup(x)).data;
    announce();
    serve();
    return 0;
}
