// The host system's sockets behind names of our own: its headers and winsock2.h declare the same
// names and cannot meet in one file. Errors are negative errno values. What waits tells the
// display.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kv {

int OpenStreamSocket();
// Address in network byte order, port as a number.
int ConnectSocket(int socket, std::uint32_t address, std::uint16_t port);
int SetBlocking(int socket, bool blocking);
long SendBytes(int socket, const char* data, std::size_t length);
long ReceiveBytes(int socket, char* data, std::size_t length);
int CloseSocket(int socket);

// IPv4 addresses in network byte order; empty when the name is unknown.
std::vector<std::uint32_t> LookUpHost(const std::string& name);

}  // namespace kv
