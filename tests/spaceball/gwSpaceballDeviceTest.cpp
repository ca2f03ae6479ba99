#include "gwSpaceballDevice.h"

#include "gwHeadlessWindow.h"
#include "gwSpaceballReports.h"
#include "tsEventLog.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>

// Some bytes that the library itself leaves behind when no daemon answers.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:spnav_open\n";
}

namespace
{
// The daemon's end of its protocol on a socket of the test's own: the first 4 bytes of a client choose the version and
// are echoed; from then on the daemon sends events of 8 integers.
class FakeDaemon
{
public:
    FakeDaemon()
    {
        // Short: the name of a socket has to fit into about a hundred characters.
        char folder[] = "/tmp/gr-spnav-XXXXXX";
        the_folder = mkdtemp(folder);
        the_path = the_folder + "/socket";
        the_listener = socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        the_path.copy(address.sun_path, sizeof address.sun_path - 1);
        the_listening = the_listener >= 0 &&
                        bind(the_listener, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
                        listen(the_listener, 1) == 0;
        setenv("SPNAV_SOCKET", the_path.c_str(), 1);
    }
    ~FakeDaemon()
    {
        if (the_thread.joinable())
            the_thread.join();
        hang_up();
        close(the_listener);
        unsetenv("SPNAV_SOCKET");
        std::filesystem::remove_all(the_folder);
    }
    int listening() const { return the_listening; }

    /// Answers the handshake of one client, while it waits for that.
    void serve()
    {
        the_thread = std::thread(
            [this]
            {
                // A client that never comes must not keep the test from failing.
                pollfd waiting{the_listener, POLLIN, 0};
                if (poll(&waiting, 1, 10000) != 1)
                    return;
                the_client = accept(the_listener, nullptr, nullptr);
                char version[4];
                if (read(the_client, version, sizeof version) == sizeof version)
                    the_greeted = write(the_client, version, sizeof version) == sizeof version;
            });
    }
    int greeted()
    {
        the_thread.join();
        return the_greeted;
    }
    int send(const std::array<int, 8>& event)
    {
        return write(the_client, event.data(), sizeof event) == static_cast<ssize_t>(sizeof event);
    }
    int motion(int x, int y, int z, int rx, int ry, int rz, int milliseconds)
    {
        return send({0, x, y, z, rx, ry, rz, milliseconds});
    }
    void hang_up()
    {
        if (the_client >= 0)
            close(the_client);
        the_client = -1;
    }

private:
    std::string the_folder, the_path;
    int the_listener = -1, the_client = -1, the_listening = 0, the_greeted = 0;
    std::thread the_thread;
};

std::unique_ptr<gwSpaceballDevice> connected(FakeDaemon& daemon)
{
    daemon.serve();
    std::unique_ptr<gwSpaceballDevice> device = gwSpaceballDevice::open();
    return daemon.greeted() ? std::move(device) : nullptr;
}
}

TEST(gwSpaceballDevice, hands_on_what_the_daemon_sends)
{
    FakeDaemon daemon;
    ASSERT_TRUE(daemon.listening());
    const std::unique_ptr<gwSpaceballDevice> device = connected(daemon);
    ASSERT_TRUE(device);
    gwHeadlessWindow window(400, 300);
    tsEventLog log(window.input());
    gwSpaceballReports reports(window);
    reports.focus(1);
    EXPECT_EQ(device->read(reports), 0) << "nothing yet";
    ASSERT_TRUE(daemon.motion(350, 0, 0, 0, -350, 0, 8));
    ASSERT_TRUE(daemon.motion(0, 35, 70, 350, 0, 0, 8));
    EXPECT_EQ(device->read(reports), 2);
    reports.flush();
    EXPECT_EQ(log.taken(), "press 4:321 at 0,0 mods 0; ball 0.5 0.05 -0.1 turn -0.5 0.5 0 for 0.016 at 0,0; ");
    // Let go; then the button that fits the view.
    ASSERT_TRUE(daemon.motion(0, 0, 0, 0, 0, 0, 16));
    ASSERT_TRUE(daemon.send({1, 1, 0, 0, 0, 0, 0, 0}));
    ASSERT_TRUE(daemon.send({2, 1, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(device->read(reports), 3);
    EXPECT_EQ(log.taken(), "release 4:321 at 0,0 mods 0; press 4:31 at 0,0 mods 0; release 4:31 at 0,0 mods 0; ");
}

TEST(gwSpaceballDevice, a_daemon_that_goes_away_is_silence)
{
    FakeDaemon daemon;
    ASSERT_TRUE(daemon.listening());
    const std::unique_ptr<gwSpaceballDevice> device = connected(daemon);
    ASSERT_TRUE(device);
    EXPECT_EQ(gwSpaceballDevice::open(), nullptr) << "there is one connection";
    daemon.hang_up();
    gwHeadlessWindow window(400, 300);
    gwSpaceballReports reports(window);
    reports.focus(1);
    EXPECT_EQ(device->read(reports), 0);
}

TEST(gwSpaceballDevice, without_a_daemon_there_is_none)
{
    setenv("SPNAV_SOCKET", "/nowhere/spnav.sock", 1);
    EXPECT_EQ(gwSpaceballDevice::open(), nullptr);
    unsetenv("SPNAV_SOCKET");
}
