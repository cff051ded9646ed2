#pragma once

#include "session.h"

namespace CLI {
class App;
}

namespace zenithor::almanac {

// Each subcommand has a file of its own, <name>_command.cpp, with one function that adds it to the
// program: its options, and a callback that runs it. A new one is declared here and listed in
// main.cpp.

void AddTodayCommand(CLI::App& program, Session& session);
void AddPositionsCommand(CLI::App& program, Session& session);
void AddEventsCommand(CLI::App& program, Session& session);
void AddNextCommand(CLI::App& program, Session& session);
void AddStationsCommand(CLI::App& program, Session& session);
void AddRetrogradesCommand(CLI::App& program, Session& session);
void AddIngressesCommand(CLI::App& program, Session& session);
void AddAspectsCommand(CLI::App& program, Session& session);
void AddRiseCommand(CLI::App& program, Session& session);
void AddDoctorCommand(CLI::App& program, Session& session);
void AddCheckCommand(CLI::App& program, Session& session);
void AddVersionCommand(CLI::App& program, Session& session);
void AddDefinitionsCommand(CLI::App& program, Session& session);

// "almanac 1.0.0".
std::string VersionText();

}  // namespace zenithor::almanac
