/// \file
/// The commands of the headless tool. Each adds itself with its options to the command line; a command that was given
/// runs while the line is parsed, and throws a `Fault` if it cannot do what it was asked.
#pragma once

namespace CLI {
class App;
}

namespace moistair {

void addStateCommand(CLI::App& app);    ///< the whole state of one point
void addBatchCommand(CLI::App& app);    ///< a state for every row of a table
void addMixCommand(CLI::App& app);      ///< two streams and their mixture
void addProcessCommand(CLI::App& app);  ///< a system of air-handling processes
void addDesignCommand(CLI::App& app);   ///< ready-made systems, from the room to the equipment
void addComfortCommand(CLI::App& app);  ///< votes on air, zones of comfort and of equipment
void addChartCommand(CLI::App& app);    ///< a chart as a file
void addSheetCommand(CLI::App& app);    ///< a sheet for submission
void addWeatherCommand(CLI::App& app);  ///< a weather file or trend log: bins, hours, design conditions, pictures

}  // namespace moistair
