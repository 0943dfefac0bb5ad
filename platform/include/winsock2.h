// Sockets, as far as the printer query needs them: start-up, name look-up, a stream connection.
// The functions have C++ linkage: the host system's own library has C functions of the same names.
#pragma once
#include <sys/types.h>
#include <windef.h>

using SOCKET = UINT_PTR;
using u_short = std::uint16_t;
// The host system's u_long, which standard headers declare, has 64 bits; the platform's has 32.
#define u_long ULONG

constexpr SOCKET INVALID_SOCKET = ~SOCKET{0};
constexpr int SOCKET_ERROR = -1;
constexpr int AF_INET = 2;
constexpr int SOCK_STREAM = 1;
constexpr int IPPROTO_TCP = 6;
constexpr u_long INADDR_NONE = 0xFFFFFFFFu;
constexpr DWORD FIONBIO = 0x8004667Eu;

constexpr int WSAEINTR = 10004;
constexpr int WSAEACCES = 10013;
constexpr int WSAEINVAL = 10022;
constexpr int WSAEWOULDBLOCK = 10035;
constexpr int WSAENOTSOCK = 10038;
constexpr int WSAENETUNREACH = 10051;
constexpr int WSAECONNRESET = 10054;
constexpr int WSAENOTCONN = 10057;
constexpr int WSAETIMEDOUT = 10060;
constexpr int WSAECONNREFUSED = 10061;
constexpr int WSAEHOSTUNREACH = 10065;
constexpr int WSAVERNOTSUPPORTED = 10092;
constexpr int WSANOTINITIALISED = 10093;
constexpr int WSAHOST_NOT_FOUND = 11001;

struct WSADATA {
    WORD wVersion;
    WORD wHighVersion;
    u_short iMaxSockets;
    u_short iMaxUdpDg;
    char* lpVendorInfo;
    char szDescription[257];
    char szSystemStatus[129];
};
struct in_addr {
    u_long s_addr;  // network byte order
};
struct sockaddr {
    u_short sa_family;
    char sa_data[14];
};
struct sockaddr_in {
    std::int16_t sin_family;
    u_short sin_port;
    in_addr sin_addr;
    char sin_zero[8];
};
struct hostent {
    char* h_name;
    char** h_aliases;
    std::int16_t h_addrtype;
    std::int16_t h_length;
    char** h_addr_list;
};

int WINAPI WSAStartup(WORD version, WSADATA* data);
int WINAPI WSACleanup();
int WINAPI WSAGetLastError();
// The answer is valid until the thread's next look-up.
hostent* WINAPI gethostbyname(const char* name);
u_long WINAPI inet_addr(const char* text);
// The answer is valid until the thread's next call.
char* WINAPI inet_ntoa(in_addr address);
u_short WINAPI htons(u_short value);
SOCKET WINAPI socket(int family, int type, int protocol);
int WINAPI connect(SOCKET socket, const sockaddr* address, int length);
int WINAPI ioctlsocket(SOCKET socket, LONG command, u_long* argument);
int WINAPI send(SOCKET socket, const char* data, int length, int flags);
int WINAPI recv(SOCKET socket, char* data, int length, int flags);
int WINAPI closesocket(SOCKET socket);
