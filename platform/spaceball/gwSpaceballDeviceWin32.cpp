// Six-axis devices as Windows hands their reports on to any program: by WM_INPUT.
#include "gwSpaceballDevice.h"

#include "gwSpaceballHid.h"
#include "gwSpaceballReports.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <deque>
#include <vector>

namespace
{
constexpr wchar_t class_name[] = L"gr six-axis devices";
constexpr USHORT generic_desktop = 1, multi_axis_controller = 8;
constexpr std::size_t most_reports = 1000; // that wait; older ones tell nothing that matters any more

HINSTANCE library()
{
    HMODULE found = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       class_name, &found);
    return found;
}

bool listen(HWND window, DWORD flags)
{
    const RAWINPUTDEVICE devices = {generic_desktop, multi_axis_controller, flags, window};
    return RegisterRawInputDevices(&devices, 1, sizeof devices);
}

// A window for messages alone. They come while the application's windows wait for theirs.
class Listener
{
public:
    static Listener* create()
    {
        WNDCLASSW description = {};
        description.lpfnWndProc = message;
        description.hInstance = library();
        description.lpszClassName = class_name;
        RegisterClassW(&description); // fails when it is there already
        const HWND window =
            CreateWindowW(class_name, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, description.hInstance, nullptr);
        if (!window)
            return nullptr;
        if (listen(window, 0))
            return new Listener(window);
        DestroyWindow(window);
        return nullptr;
    }
    ~Listener()
    {
        listen(nullptr, RIDEV_REMOVE);
        DestroyWindow(the_window);
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    int read(gwSpaceballReports& reports)
    {
        const int count = static_cast<int>(the_waiting.size());
        for (const std::vector<unsigned char>& report : the_waiting)
            the_hid.report(report.data(), report.size(), reports);
        the_waiting.clear();
        the_hid.flush(reports);
        return count;
    }

private:
    explicit Listener(HWND window) : the_window(window)
    {
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }

    static LRESULT CALLBACK message(HWND window, UINT kind, WPARAM parameter, LPARAM data)
    {
        auto* self = reinterpret_cast<Listener*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (kind == WM_INPUT && self)
            self->keep(reinterpret_cast<HRAWINPUT>(data));
        return DefWindowProcW(window, kind, parameter, data);
    }

    void keep(HRAWINPUT input)
    {
        UINT size = 0;
        if (GetRawInputData(input, RID_INPUT, nullptr, &size, sizeof(RAWINPUTHEADER)) != 0 ||
            size < sizeof(RAWINPUTHEADER))
            return;
        the_room.resize(size / sizeof(RAWINPUT) + 1);
        if (GetRawInputData(input, RID_INPUT, the_room.data(), &size, sizeof(RAWINPUTHEADER)) != size ||
            the_room[0].header.dwType != RIM_TYPEHID)
            return;
        const RAWHID& reports = the_room[0].data.hid;
        for (DWORD i = 0; i < reports.dwCount; ++i)
        {
            const BYTE* const from = reports.bRawData + std::size_t{i} * reports.dwSizeHid;
            if (the_waiting.size() == most_reports)
                the_waiting.pop_front();
            the_waiting.emplace_back(from, from + reports.dwSizeHid);
        }
    }

    HWND the_window;
    gwSpaceballHid the_hid;
    std::deque<std::vector<unsigned char>> the_waiting;
    std::vector<RAWINPUT> the_room;
};

Listener* the_listener = nullptr;
}

std::unique_ptr<gwSpaceballDevice> gwSpaceballDevice::open()
{
    if (the_listener)
        return nullptr;
    the_listener = Listener::create();
    return std::unique_ptr<gwSpaceballDevice>(the_listener ? new gwSpaceballDevice : nullptr);
}

gwSpaceballDevice::~gwSpaceballDevice()
{
    delete the_listener;
    the_listener = nullptr;
}

int gwSpaceballDevice::wakes_windows() const
{
    return 1;
}

int gwSpaceballDevice::read(gwSpaceballReports& reports)
{
    return the_listener->read(reports);
}
