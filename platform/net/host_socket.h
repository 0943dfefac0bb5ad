// The host system's sockets behind names of our own: its headers and winsock2.h declare the same
// names and cannot meet in one file. Errors are negative errno values. What waits tells the
// display.
#pragma once

#include <platform/display/waiting.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kv {

int OpenStreamSocket();
// As long as the platform tries to connect: three times, 3, 6 and 12 seconds apart.
constexpr Milliseconds kConnectLimit{21000};
// Address in network byte order, port as a number. The limit is for sockets that wait.
int ConnectSocket(int socket, std::uint32_t address, std::uint16_t port,
                  Milliseconds limit = kConnectLimit);
// A device that is read and written like a socket that does not wait.
int OpenDevice(const char* path);
int SetBlocking(int socket, bool blocking);
long SendBytes(int socket, const char* data, std::size_t length);
long ReceiveBytes(int socket, char* data, std::size_t length);
int CloseSocket(int socket);

// IPv4 addresses in network byte order; empty when the name is unknown.
std::vector<std::uint32_t> LookUpHost(const std::string& name);

}  // namespace kv
