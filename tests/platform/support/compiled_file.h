// Builds compiled resource files in memory. Used by tests that need resources of their own.
#pragma once

#include <windef.h>

#include <string>
#include <vector>

class CompiledFile {
 public:
    CompiledFile() { Add(Id(0), Id(0), {}); }  // the mark that begins every file

    static std::vector<BYTE> Id(WORD id) {
        return {0xFF, 0xFF, static_cast<BYTE>(id), static_cast<BYTE>(id >> 8)};
    }
    static std::vector<BYTE> Text(const std::string& text) {
        std::vector<BYTE> bytes;
        for (const char letter : text + '\0') {
            bytes.push_back(static_cast<BYTE>(letter));
            bytes.push_back(0);
        }
        return bytes;
    }

    CompiledFile& Add(const std::vector<BYTE>& type, const std::vector<BYTE>& name,
                      const std::vector<BYTE>& data, WORD language = 0) {
        std::vector<BYTE> names = type;
        names.insert(names.end(), name.begin(), name.end());
        while (names.size() % 4 != 0) names.push_back(0);
        Dword(static_cast<DWORD>(data.size()));
        Dword(static_cast<DWORD>(names.size() + 24));
        bytes.insert(bytes.end(), names.begin(), names.end());
        Dword(0);
        Dword(static_cast<DWORD>(language) << 16);
        Dword(0);
        Dword(0);
        bytes.insert(bytes.end(), data.begin(), data.end());
        while (bytes.size() % 4 != 0) bytes.push_back(0);
        return *this;
    }

    std::vector<BYTE> bytes;

 private:
    void Dword(DWORD value) {
        for (int shift = 0; shift < 32; shift += 8) {
            bytes.push_back(static_cast<BYTE>(value >> shift));
        }
    }
};
