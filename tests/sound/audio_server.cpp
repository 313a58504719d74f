#include "sound/audio_server.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "sound/sound_proxy.h"
#include "support/process.h"

namespace orvel_test {
namespace {

constexpr auto kPatience = std::chrono::seconds(10);

/// Runs a program that ends with this process at the latest; its output goes to a descriptor.
pid_t launch(const std::vector<std::string>& command, int output, int error) {
    std::vector<char*> arguments;
    for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const pid_t pid = fork();
    if (pid < 0) throw std::runtime_error("no process for " + command[0]);
    if (pid > 0) return pid;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    dup2(output, STDOUT_FILENO);
    dup2(error, STDERR_FILENO);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

void end(pid_t pid) {
    kill(pid, SIGTERM);
    for (int i = 0; i < 3000; ++i) {
        if (waitpid(pid, nullptr, WNOHANG) != 0) return;
        usleep(1000);
    }
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
}

bool answers(const std::string& socket_path) {
    const int client = connected_socket(socket_path);
    close(client);
    return client >= 0;
}

std::string output_of(const std::vector<std::string>& command) {
    const Finished done = run(command);
    return done.status == 0 ? done.output : "failed: " + done.error;
}

/// A daemon with a sink, one that connects what plays with it, and one that speaks as PulseAudio.
void write_pipewire_configuration(const std::string& folder, const std::string& socket) {
    const std::string common = R"(
context.spa-libs = {
    audio.convert.* = audioconvert/libspa-audioconvert
    support.*       = support/libspa-support
}
)";
    const std::string modules = R"(
    { name = libpipewire-module-protocol-native }
    { name = libpipewire-module-client-node }
    { name = libpipewire-module-adapter }
    { name = libpipewire-module-metadata }
)";
    write_file(folder + "/pipewire.conf", common + R"(
context.properties = { core.daemon = true core.name = pipewire-0 default.clock.rate = 44100
                       default.clock.quantum = 4096 default.clock.min-quantum = 4096 }
context.modules = [)" + modules + R"(
    { name = libpipewire-module-spa-node-factory }
    { name = libpipewire-module-access }
    { name = libpipewire-module-link-factory }
    { name = libpipewire-module-session-manager }
]
context.objects = [ { factory = adapter args = {
    factory.name = support.null-audio-sink node.name = orvel media.class = Audio/Sink
    object.linger = true audio.position = [ MONO ] audio.rate = 44100
    monitor.channel-volumes = true
} } ]
)");
    write_file(
        folder + "/pipewire-pulse.conf",
        common + "context.modules = [" + modules +
            "{ name = libpipewire-module-protocol-pulse args = { server.address = [ \"unix:" +
            socket + "\" ] } } ]\n");
    write_file(folder + "/wireplumber.conf", common + R"(
context.properties = { wireplumber.script-engine = lua-scripting }
context.modules = [)" + modules + R"(
    { name = libpipewire-module-session-manager }
]
wireplumber.components = [
    { name = libwireplumber-module-lua-scripting, type = module }
    { name = orvel.lua, type = config/lua }
]
)");
    write_file(folder + "/orvel.lua.d/00-functions.lua",
               read_file("/usr/share/wireplumber/policy.lua.d/00-functions.lua"));
    write_file(folder + "/orvel.lua.d/10-orvel.lua", R"(
load_module("metadata")
load_module("default-nodes", { ["use-persistent-storage"] = false })
load_module("si-node")
load_module("si-audio-adapter")
load_module("si-standard-link")
load_module("si-audio-endpoint")
load_module("default-nodes-api")
load_script("create-item.lua", {})
load_script("policy-node.lua", {})
)");
}

}  // namespace

bool is_installed(Server server) {
    if (server == Server::pulseaudio) return true;  // the tests need it anyway
    return access("/usr/bin/pipewire", X_OK) == 0 && access("/usr/bin/wireplumber", X_OK) == 0 &&
           access("/usr/bin/pipewire-pulse", X_OK) == 0;
}

AudioServer::AudioServer(Server kind) : kind_(kind), socket_(folder_ / "native") {
    const std::string config = folder_ / "client.conf";
    write_file(config, "autospawn = no\n");
    for (const char* variable :
         {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME",
          "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH", "PIPEWIRE_RUNTIME_DIR"}) {
        const std::string path = folder_ / variable;
        mkdir(path.c_str(), 0700);
        setenv(variable, path.c_str(), 1);
    }
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS",
                                 "PULSE_SINK", "PULSE_SOURCE", "PULSE_COOKIE"}) {
        unsetenv(variable);
    }
    setenv("PULSE_CLIENTCONFIG", config.c_str(), 1);
    setenv("PULSE_SERVER", ("unix:" + socket_).c_str(), 1);
    setenv("WIREPLUMBER_CONFIG_DIR", folder_.path().c_str(), 1);
    start();
}

AudioServer::~AudioServer() { stop(); }

void AudioServer::start() {
    const int log =
        open((folder_ / "log").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    kind_ == Server::pulseaudio ? start_pulseaudio(log) : start_pipewire(log);
    close(log);
    await([this] { return answers(socket_); });
    await([] { return output_of({"pactl", "get-default-sink"}) == "orvel\n"; });
}

void AudioServer::start_pulseaudio(int log) {
    pids_ = {
        launch({"pulseaudio", "-n", "--daemonize=no", "--system=no", "--use-pid-file=no",
                "--exit-idle-time=-1", "--realtime=no", "--high-priority=no", "--log-target=stderr",
                "--load=module-null-sink sink_name=orvel norewinds=1 rate=44100 channels=1 "
                "format=s16le",
                "--load=module-native-protocol-unix auth-anonymous=1 socket=" + socket_},
               log, log)};
}

void AudioServer::start_pipewire(int log) {
    write_pipewire_configuration(folder_.path(), socket_);
    const std::string core = folder_ / "PIPEWIRE_RUNTIME_DIR/pipewire-0";
    pids_ = {launch({"pipewire", "-c", folder_ / "pipewire.conf"}, log, log)};
    await([&core] { return answers(core); });
    pids_.push_back(launch({"wireplumber", "-c", "wireplumber.conf"}, log, log));
    pids_.push_back(launch({"pipewire-pulse", "-c", folder_ / "pipewire-pulse.conf"}, log, log));
}

void AudioServer::await(const std::function<bool()>& is_so) {
    const auto deadline = Clock::now() + kPatience;
    while (!is_so()) {
        if (Clock::now() > deadline || waitpid(pids_.back(), nullptr, WNOHANG) != 0) {
            throw std::runtime_error("the sound server does not start:\n" +
                                     read_file(folder_ / "log"));
        }
        usleep(2000);
    }
}

void AudioServer::stop() {
    for (; !pids_.empty(); pids_.pop_back()) end(pids_.back());
    unlink(socket_.c_str());
}

void AudioServer::send(int signal) const { kill(pid(), signal); }

std::string AudioServer::kept_samples() const {
    return output_of({"pactl", "list", "short", "samples"});
}

Recorder::Recorder() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    pipe_ = ends[0];
    pid_ = launch({"parec", "--device=orvel.monitor", "--raw", "--format=s16le", "--rate=44100",
                   "--channels=1", "--latency-msec=10"},
                  ends[1], STDERR_FILENO);
    close(ends[1]);
    reader_ = std::thread([this] { read(); });
    wait(1);
}

Recorder::~Recorder() {
    end(pid_);
    reader_.join();
    close(pipe_);
}

void Recorder::read() {
    std::vector<unsigned char> bytes(4096);
    std::size_t left_over = 0;  // half a sample
    for (;;) {
        const ssize_t count = ::read(pipe_, bytes.data() + left_over, bytes.size() - left_over);
        if (count <= 0) return;
        const std::size_t size = left_over + static_cast<std::size_t>(count);
        const std::lock_guard<std::mutex> lock(mutex_);
        for (std::size_t at = 0; at + 1 < size; at += 2) {
            samples_.push_back(static_cast<std::int16_t>(bytes[at] | bytes[at + 1] << 8));
            if (samples_.back() != 0) last_sound_ = Clock::now();
        }
        left_over = size % 2;
        if (left_over) bytes[0] = bytes[size - 1];
    }
}

void Recorder::forget() {
    const std::lock_guard<std::mutex> lock(mutex_);
    samples_.clear();
}

Samples Recorder::samples() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return samples_;
}

Clock::time_point Recorder::last_sound() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return last_sound_;
}

bool Recorder::wait_for_sound() const {
    const auto deadline = Clock::now() + kPatience;
    while (heard(samples()).empty()) {
        if (Clock::now() > deadline) return false;
        usleep(5000);
    }
    return true;
}

bool Recorder::wait_for_silence(int ms) const {
    const auto deadline = Clock::now() + kPatience;
    for (;;) {
        const Samples all = samples();
        const std::size_t count = static_cast<std::size_t>(ms) * 441 / 10;
        if (all.size() >= count &&
            heard(Samples(all.end() - static_cast<std::ptrdiff_t>(count), all.end())).empty()) {
            return true;
        }
        if (Clock::now() > deadline) return false;
        usleep(5000);
    }
}

void Recorder::wait(int ms) const {
    const auto deadline = Clock::now() + kPatience;
    const std::size_t count = samples().size() + static_cast<std::size_t>(ms) * 441 / 10;
    while (samples().size() < count) {
        if (Clock::now() > deadline) throw std::runtime_error("nothing is being recorded");
        usleep(2000);
    }
}

}  // namespace orvel_test
