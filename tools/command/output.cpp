#include "tools/command/output.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <nlohmann/json.hpp>
#include <system_error>
#include <vector>

#include "records/json.hpp"

namespace command {
namespace {

using Row = std::vector<std::string>;

std::string cell(const Json &value) {
  if (value.is_string()) return value.get<std::string>();
  if (!value.is_array()) return value.dump();
  std::string list;
  for (const Json &element : value) list += (list.empty() ? "" : ", ") + cell(element);
  return list;
}

// Terminal columns, as far as one a code point goes.
size_t width(const std::string &text) {
  return static_cast<size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xc0) != 0x80; }));
}

void printRows(const std::vector<Row> &rows) {
  std::vector<size_t> widths(rows.front().size());
  for (const Row &row : rows) {
    for (size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], width(row[i]));
  }
  for (const Row &row : rows) {
    std::string line;
    for (size_t i = 0; i < row.size(); ++i) {
      line += row[i];
      if (i + 1 < row.size()) line.append(widths[i] - width(row[i]) + 2, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    std::cout << line << '\n';
  }
}

bool isListOfRows(const Json &value) {
  return value.is_array() && !value.empty() && value.front().is_object();
}

void printTable(const std::string &name, const Json &value);

// Members that are lists of rows themselves follow as tables of their own.
void printInnerTables(const std::string &name, const Json &record) {
  for (const auto &[member, value] : record.items()) {
    if (value.is_object() || isListOfRows(value)) printTable(name + "." + member, value);
  }
}

void printTable(const std::string &name, const Json &value) {
  if (value.is_object()) {
    std::vector<Row> rows;
    for (const auto &[member, element] : value.items()) {
      if (!element.is_object() && !isListOfRows(element)) rows.push_back({member, cell(element)});
    }
    if (!name.empty()) std::cout << '\n' << name << '\n';
    if (!rows.empty()) printRows(rows);
    for (const auto &[member, element] : value.items()) {
      if (!element.is_object() && !isListOfRows(element)) continue;
      printTable(name.empty() ? member : name + "." + member, element);
    }
    return;
  }
  Row head;
  for (const auto &[member, element] : value.front().items()) {
    if (!element.is_object() && !isListOfRows(element)) head.push_back(member);
  }
  std::vector<Row> rows{head};
  for (const Json &record : value) {
    Row row;
    for (const std::string &member : head) row.push_back(cell(record.value(member, Json(""))));
    rows.push_back(row);
  }
  std::cout << '\n' << name << '\n';
  printRows(rows);
  for (size_t i = 0; i < value.size(); ++i) {
    printInnerTables(name + "[" + std::to_string(i) + "]", value[i]);
  }
}

}  // namespace

void printAnswer(const Json &answer, bool asTable) {
  if (!asTable) {
    std::cout << answer.dump() << '\n';
  } else if (answer.is_object()) {
    printTable("", answer);
  } else {
    std::cout << cell(answer) << '\n';
  }
  std::cout.flush();
}

void keepStandardDescriptors() {
  for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
    // Opened the wrong way round: whoever uses it is told.
    const int flags = descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY;
    if (fcntl(descriptor, F_GETFD) < 0) open("/dev/null", flags);
  }
  for (const int endsTheProcess : {SIGPIPE, SIGXFSZ}) std::signal(endsTheProcess, SIG_IGN);
}

bool isOutputWritten() {
  std::cout.flush();
  return std::cout.good() && std::fflush(stdout) == 0;
}

std::string reasonOf(const std::exception &error) {
  if (const auto *files = dynamic_cast<const std::filesystem::filesystem_error *>(&error)) {
    return files->path1().string() + ": " + files->code().message();
  }
  if (dynamic_cast<const InputError *>(&error) ||
      dynamic_cast<const records::InputError *>(&error)) {
    return error.what();
  }
  if (const auto *system = dynamic_cast<const std::system_error *>(&error)) {
    return system->code().message();
  }
  if (dynamic_cast<const std::bad_alloc *>(&error)) return "out of memory";
  return "an error of the command itself";
}

}  // namespace command
