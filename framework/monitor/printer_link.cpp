// See printer_link.h.
#include "printer_link.h"

#include <platform/display/waiting.h>
#include <platform/net/host_socket.h>
#include <winbase.h>

#include <algorithm>
#include <cerrno>

namespace kvmonitor {
namespace {

// Two questions, as the driver asks them, end before its user gives up.
constexpr kv::Milliseconds kTimeLimit{7000};
// No reply is that long; more is kept of none.
constexpr std::size_t kLongestReply = 64 * 1024;
constexpr char kUniversalExit[] = "\x1B%-12345X";

enum class Moved { kSome, kNothingYet, kOver };

class PrinterLink {
 public:
    explicit PrinterLink(kv::Milliseconds limit) : end_(kv::Now() + limit) {}
    ~PrinterLink() {
        if (file_ >= 0) kv::CloseSocket(file_);
    }
    PrinterLink(const PrinterLink&) = delete;
    PrinterLink& operator=(const PrinterLink&) = delete;

    DWORD Open(const PrinterAddress& address) {
        isDevice_ = !address.device.empty();
        file_ = isDevice_ ? kv::OpenDevice(address.device.c_str()) : Connect(address);
        if (file_ >= 0) return ERROR_SUCCESS;
        return file_ == -ETIMEDOUT ? ERROR_TIMEOUT : ERROR_NOT_READY;
    }
    DWORD Send(const std::string& bytes) {
        for (std::size_t sent = 0; sent < bytes.size();) {
            const long result = kv::SendBytes(file_, bytes.data() + sent, bytes.size() - sent);
            if (result < 0 && result != -EAGAIN) return ERROR_NOT_READY;
            if (result <= 0 && !Wait(kv::Ready::kToWrite)) return ERROR_TIMEOUT;
            if (result > 0) sent += static_cast<std::size_t>(result);
        }
        return ERROR_SUCCESS;
    }
    // Adds what came. kOver: nothing more will.
    Moved Receive(std::string& reply) {
        char buffer[4096];
        const long got = kv::ReceiveBytes(file_, buffer, sizeof buffer);
        if (got > 0) {
            reply.append(buffer, static_cast<std::size_t>(got));
            return Moved::kSome;
        }
        // A device without anything to say may look like a file at its end.
        return got == -EAGAIN || (got == 0 && isDevice_) ? Moved::kNothingYet : Moved::kOver;
    }
    // False when the time is over.
    bool Wait(kv::Ready ready) {
        const kv::Milliseconds left = end_ - kv::Now();
        if (left.count() <= 0) return false;
        if (isDevice_) {
            kv::PassTime(std::min(left, kv::kWaitStep));
            return true;
        }
        return kv::WaitUntil(ready, file_, left);
    }
    bool IsTimeLeft() const { return kv::Now() < end_; }

 private:
    int Connect(const PrinterAddress& address) const {
        const auto hosts = kv::LookUpHost(address.host);
        if (hosts.empty()) return -EHOSTUNREACH;
        const int socket = kv::OpenStreamSocket();
        if (socket < 0) return socket;
        const kv::Milliseconds left = std::max(end_ - kv::Now(), kv::Milliseconds{0});
        int result = kv::ConnectSocket(socket, hosts[0], address.port, left);
        if (result >= 0) result = kv::SetBlocking(socket, false);
        if (result >= 0) return socket;
        kv::CloseSocket(socket);
        return result;
    }

    kv::Milliseconds end_;
    int file_ = -1;
    bool isDevice_ = false;
};

DWORD Collect(PrinterLink& link, std::string& reply) {
    while (reply.size() < kLongestReply && link.IsTimeLeft()) {
        const std::size_t before = reply.size();
        const Moved moved = link.Receive(reply);
        if (moved == Moved::kOver) return reply.empty() ? ERROR_NOT_READY : ERROR_SUCCESS;
        if (reply.find('\f', before) != std::string::npos) return ERROR_SUCCESS;
        if (moved == Moved::kNothingYet && !link.Wait(kv::Ready::kToRead)) break;
    }
    return reply.empty() ? ERROR_TIMEOUT : ERROR_SUCCESS;
}

// `reply` is null when none is wanted.
DWORD Exchange(const PrinterAddress& address, const std::string& command, std::string* reply) {
    const kv::WaitSubject subject((address.host.empty() ? address.device : address.host) +
                                  " to answer " + command);
    PrinterLink link(kTimeLimit);
    DWORD error = link.Open(address);
    if (error == ERROR_SUCCESS)
        error = link.Send(kUniversalExit + command + "\r\n" + kUniversalExit);
    if (error == ERROR_SUCCESS && reply != nullptr) error = Collect(link, *reply);
    return error;
}

}  // namespace

DWORD AskPrinterAt(const PrinterAddress& address, const std::string& command, std::string& reply) {
    reply.clear();
    return Exchange(address, command, &reply);
}

DWORD AskPrinter(const std::string& port, const std::string& command, std::string& reply) {
    reply.clear();
    PrinterAddress address;
    if (!FindPrinterAddress(port, address)) return ERROR_UNKNOWN_PORT;
    return AskPrinterAt(address, command, reply);
}

DWORD TellPrinter(const std::string& port, const std::string& command) {
    PrinterAddress address;
    if (!FindPrinterAddress(port, address)) return ERROR_UNKNOWN_PORT;
    return Exchange(address, command, nullptr);
}

}  // namespace kvmonitor
