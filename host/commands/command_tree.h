// The commands, options and help texts of kvprefs as the parser knows them. main.cpp runs what was
// parsed; completion reads the same tree, so that it offers nothing the parser does not take.
#pragma once

#include <host/commands/commands.h>
#include <host/commands/list_arguments.h>
#include <host/controls/conflict_answers.h>
#include <host/controls/session.h>

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace kvhost {

struct Arguments {
    Options options;
    std::string state;
    bool asUser = false;
    bool asAdministrator = false;
    std::vector<std::string> names;
    std::vector<std::string> pairs;
    std::string page;
    std::string view;
    std::string folder;
    std::string file;
    std::string other;
    std::string entry;
    std::string name;
    PrinterArguments printer;
    ListArguments list;
    std::string policy = "ask";  // one of kPolicyNames or kRemovalNames
    double scale = 1;
    bool rightToLeft = false;
    bool force = false;
    bool service = false;
};

// What --on-conflict, --on-removal and --view take; the second as the first, word by word.
extern const char* const kPolicyNames[3];
extern const char* const kRemovalNames[3];  // of --on-removal
extern const char* const kViewNames[4];

// What the parser found wrong, in one line that names the help to look at.
std::string ProblemOf(const CLI::ParseError& error, const CLI::App& app);
ConflictPolicy PolicyOfName(const std::string& name);

// Adds all commands and options; what is parsed goes to `args`, which must live as long as `app`.
void DescribeCommands(CLI::App& app, Arguments& args);

}  // namespace kvhost
