#include "support/audio_server.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

#include "support/wav.h"

namespace orvel_test {
namespace {

constexpr auto kPatience = std::chrono::seconds(10);

/// Runs a program that ends with this process at the latest; its output goes to a descriptor.
pid_t run(const std::vector<std::string>& command, int output, int error) {
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
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (socket_path.size() >= sizeof address.sun_path) throw std::runtime_error("path too long");
    std::memcpy(address.sun_path, socket_path.c_str(), socket_path.size());
    const int client = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool connected =
        connect(client, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(client);
    return connected;
}

}  // namespace

AudioServer::AudioServer() : socket_(folder_ / "native") {
    const std::string config = folder_ / "client.conf";
    write_file(config, "autospawn = no\n");
    for (const char* variable : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_CACHE_HOME",
                                 "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH"}) {
        const std::string path = folder_ / variable;
        mkdir(path.c_str(), 0700);
        setenv(variable, path.c_str(), 1);
    }
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS",
                                 "PULSE_SINK", "PULSE_SOURCE", "PULSE_COOKIE", "CANBERRA_DRIVER"}) {
        unsetenv(variable);
    }
    setenv("PULSE_CLIENTCONFIG", config.c_str(), 1);
    setenv("PULSE_SERVER", ("unix:" + socket_).c_str(), 1);
    start();
}

AudioServer::~AudioServer() { stop(); }

void AudioServer::start() {
    const std::string log = folder_ / "log";
    const int output = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    pid_ = run({"pulseaudio", "-n", "--daemonize=no", "--system=no", "--use-pid-file=no",
                "--exit-idle-time=-1", "--realtime=no", "--high-priority=no", "--log-target=stderr",
                "--load=module-null-sink sink_name=orvel norewinds=1 rate=44100 channels=1 "
                "format=s16le",
                "--load=module-native-protocol-unix auth-anonymous=1 socket=" + socket_},
               output, output);
    close(output);
    const auto deadline = Clock::now() + kPatience;
    while (!answers(socket_)) {
        if (Clock::now() > deadline || waitpid(pid_, nullptr, WNOHANG) != 0) {
            throw std::runtime_error("the sound server does not start:\n" + read_file(log));
        }
        usleep(2000);
    }
}

void AudioServer::stop() {
    if (pid_ > 0) end(pid_);
    pid_ = -1;
    unlink(socket_.c_str());
}

Recorder::Recorder() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    pipe_ = ends[0];
    pid_ = run({"parec", "--device=orvel.monitor", "--raw", "--format=s16le", "--rate=44100",
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

Samples heard(const Samples& recording) {
    const auto loud = [](std::int16_t sample) { return sample != 0; };
    const auto begin = std::find_if(recording.begin(), recording.end(), loud);
    const auto end = std::find_if(recording.rbegin(), recording.rend(), loud).base();
    return begin < end ? Samples(begin, end) : Samples();
}

double milliseconds(const Samples& samples) { return static_cast<double>(samples.size()) / 44.1; }

double share_at(double frequency_hz, const Samples& samples) {
    // The part that a cosine and a sine explain, by least squares: the two are not quite at right
    // angles to each other unless the samples hold whole periods.
    double c = 0.0, s = 0.0, cc = 0.0, cs = 0.0, ss = 0.0, energy = 0.0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double phase = static_cast<double>(i) * frequency_hz * 2.0 * M_PI / 44100.0;
        const double cosine = std::cos(phase), sine = std::sin(phase), value = samples[i];
        c += value * cosine;
        s += value * sine;
        cc += cosine * cosine;
        cs += cosine * sine;
        ss += sine * sine;
        energy += value * value;
    }
    const double determinant = cc * ss - cs * cs;
    if (energy == 0.0 || determinant == 0.0) return 0.0;
    return (c * c * ss - 2.0 * c * s * cs + s * s * cc) / (determinant * energy);
}

Samples part(const Samples& samples, double from, double to) {
    const auto last = static_cast<double>(samples.size());
    const auto at = [last](double ms) {
        return static_cast<std::ptrdiff_t>(std::clamp(ms * 44.1, 0.0, last));
    };
    return Samples(samples.begin() + at(from), samples.begin() + at(to));
}

Samples sine(double frequency_hz, int duration_ms, int peak) {
    Samples samples;
    for (int i = 0; i < duration_ms * 441 / 10; ++i) {
        const double phase = i * frequency_hz * 2.0 * M_PI / 44100.0;
        samples.push_back(static_cast<std::int16_t>(std::lround(peak * std::sin(phase))));
    }
    return samples;
}

std::string wav_file(const Samples& samples) {
    std::string data;
    for (const std::int16_t sample : samples) {
        data += little(static_cast<std::uint16_t>(sample), 2);
    }
    return riff(chunk("fmt ", format(1, 1, 44100, 16)) + chunk("data", data));
}

std::string aiff_file(const Samples& samples) {
    const auto big = [](std::size_t value, int bytes) {
        const std::string text = little(value, bytes);
        return std::string(text.rbegin(), text.rend());
    };
    std::string data;
    for (const std::int16_t sample : samples) data += big(static_cast<std::uint16_t>(sample), 2);
    // 44100 as an 80-bit floating-point number.
    const std::string rate("\x40\x0e\xac\x44\0\0\0\0\0\0", 10);
    const std::string format =
        "COMM" + big(18, 4) + big(1, 2) + big(samples.size(), 4) + big(16, 2) + rate;
    const std::string sound = "SSND" + big(8 + data.size(), 4) + big(0, 8) + data;
    return "FORM" + big(4 + format.size() + sound.size(), 4) + "AIFF" + format + sound;
}

}  // namespace orvel_test
