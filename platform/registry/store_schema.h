// The tables of the store. A change of format raises the version; docs/formats.md describes them.
#pragma once

namespace kv {

constexpr int kSchemaVersion = 1;

// Keys 1 to 3 are the roots that registry.cpp maps the predefined keys to; the users' root holds
// one key per user number. Key numbers are never used again, so that an open key whose row was
// deleted does not come to name another.
constexpr const char* kSchema = R"sql(
CREATE TABLE printer (
    id               INTEGER PRIMARY KEY,
    name             TEXT NOT NULL COLLATE NOCASE UNIQUE,
    share            TEXT NOT NULL,
    port             TEXT NOT NULL,
    driver           TEXT NOT NULL,
    comment          TEXT NOT NULL,
    location         TEXT NOT NULL,
    separator_file   TEXT NOT NULL,
    print_processor  TEXT NOT NULL,
    data_type        TEXT NOT NULL,
    parameters       TEXT NOT NULL,
    device_mode      BLOB NOT NULL,
    attributes       INTEGER NOT NULL,
    priority         INTEGER NOT NULL,
    default_priority INTEGER NOT NULL,
    start_time       INTEGER NOT NULL,
    until_time       INTEGER NOT NULL);
CREATE TABLE printer_data (
    printer INTEGER NOT NULL REFERENCES printer(id) ON DELETE CASCADE,
    name    TEXT NOT NULL COLLATE NOCASE,
    type    INTEGER NOT NULL,
    data    BLOB NOT NULL,
    UNIQUE (printer, name));
CREATE TABLE registry_key (
    id     INTEGER PRIMARY KEY AUTOINCREMENT,
    parent INTEGER REFERENCES registry_key(id) ON DELETE CASCADE,
    name   TEXT NOT NULL COLLATE NOCASE,
    UNIQUE (parent, name));
CREATE TABLE registry_value (
    key  INTEGER NOT NULL REFERENCES registry_key(id) ON DELETE CASCADE,
    name TEXT NOT NULL COLLATE NOCASE,
    type INTEGER NOT NULL,
    data BLOB NOT NULL,
    UNIQUE (key, name));
INSERT INTO registry_key (id, parent, name)
    VALUES (1, NULL, 'classes'), (2, NULL, 'machine'), (3, NULL, 'users');
PRAGMA user_version = 1;
)sql";

}  // namespace kv
