// Settings records that travel: files that a person names, devices, pipes, standard input and
// output. Used by the record commands.
#pragma once

#include <host/record/record_store.h>

#include <string>

namespace kvhost {

// "-" is standard input. False with an error when it cannot be read or is no settings record.
bool ReadRecordFrom(const std::string& file, Record& record, std::string& error);

// "-" is standard output. A regular file, or a new one, is replaced as a whole and keeps its mode;
// links are followed; into anything else the record is written through.
bool WriteRecordTo(const std::string& file, const Record& record, std::string& error);
bool WriteBytesTo(const std::string& file, const void* bytes, size_t size, std::string& error);

}  // namespace kvhost
