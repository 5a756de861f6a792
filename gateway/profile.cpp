#include "gateway/profile.hpp"

#include <nlohmann/json.hpp>

#include "gateway/gateway.hpp"
#include "gateway/section.hpp"
#include "gateway/text_file.hpp"
#include "records/codec.hpp"

namespace gateway {

namespace {

void loadTables(Gateway &gateway, const Json &tables, const std::string &place, bool views) {
  if (!tables.is_object()) throw InputError(place, "must be an object");
  for (const auto &[name, instances] : tables.items()) {
    const std::string tablePlace = place + "." + name;
    const Layout *layout = layoutByName(name);
    if (layout == nullptr || layout->isView() != views) {
      throw InputError(tablePlace, views ? "no such view" : "no such record");
    }
    if (!instances.is_object()) throw InputError(tablePlace, "must be an object");
    for (const auto &[path, fields] : instances.items()) {
      const std::string instancePlace = tablePlace + "." + path;
      if (path.empty()) throw InputError(instancePlace, "an instance needs a path");
      fromJson(fields, instancePlace, shapeOf(*layout),
               gateway.store().create(*layout, path).data());
    }
  }
}

Json saveTables(Gateway &gateway, bool views) {
  Json tables = Json::object();
  for (const Layout &layout : allLayouts()) {
    if (layout.isView() != views) continue;
    Json instances = Json::object();
    for (const std::string &path : gateway.store().paths(layout)) {
      instances[path] =
          toJson(shapeOf(layout), gateway.store().row(layout, path).data(), {.omitsZeros = true});
    }
    if (!instances.empty()) tables[std::string(layout.name)] = std::move(instances);
  }
  return tables;
}

/// A file is a text, or an array of lines.
std::string fileContent(const Json &value, const std::string &place) {
  if (value.is_string()) return value.get<std::string>();
  if (!value.is_array()) throw InputError(place, "must be a text or an array of lines");
  std::string content;
  for (const Json &line : value) {
    if (!line.is_string()) throw InputError(place, "a line must be a text");
    content += line.get<std::string>() + "\n";
  }
  return content;
}

void loadFiles(Gateway &gateway, const Json &files, const std::string &place) {
  if (!files.is_object()) throw InputError(place, "must be an object");
  for (const auto &[path, value] : files.items()) {
    const std::string filePlace = place + "." + path;
    const std::string content = fileContent(value, filePlace);
    try {
      // A directory of the user's keeps what is in it.
      if (!gateway.files().read(path)) gateway.files().write(path, content);
    } catch (const std::exception &error) {
      throw InputError(filePlace, error.what());
    }
  }
}

Json saveFiles(Gateway &gateway) {
  Json files = Json::object();
  for (const std::string &path : gateway.files().list()) {
    files[path] = gateway.files().read(path).value_or("");
  }
  return files;
}

void readTime(Members &members, const char *member, int64_t *out) {
  members.number(member, out);
  if (*out < 0 || *out > Clock::kLatest) {
    throw InputError(members.placeOf(member), "number out of range");
  }
}

void loadClock(Gateway &gateway, const Json &value, const std::string &place) {
  Members members(value, place);
  int64_t uptime = gateway.clock().uptime();
  int64_t time = gateway.clock().time();
  readTime(members, "uptime", &uptime);
  readTime(members, "time", &time);
  members.finish();
  gateway.clock().set(uptime, time);
}

}  // namespace

Json parseProfile(std::string_view text, const std::string &place) {
  return withTexts(parseJson(text, place), bytesFromUtf8);
}

Json readProfile(const std::string &fileName) {
  return parseProfile(readTextFile(fileName), fileName);
}

std::string profileText(Gateway &gateway) {
  return withTexts(saveProfile(gateway), bytesToUtf8).dump(2) + '\n';
}

void loadProfile(Gateway &gateway, const Json &profile) {
  Members members(profile, "");
  members.take("description");
  if (const Json *clock = members.take("clock")) loadClock(gateway, *clock, "clock");
  if (const Json *views = members.take("views")) loadTables(gateway, *views, "views", true);
  if (const Json *records = members.take("records")) {
    loadTables(gateway, *records, "records", false);
  }
  if (const Json *files = members.take("files")) loadFiles(gateway, *files, "files");
  for (Section *section : Section::all()) {
    const std::string name(section->name());
    if (const Json *value = members.take(name)) section->load(*value, name);
  }
  members.finish();
}

Json saveProfile(Gateway &gateway) {
  Json profile = Json::object();
  profile["clock"] = {{"uptime", gateway.clock().uptime()}, {"time", gateway.clock().time()}};
  profile["views"] = saveTables(gateway, true);
  profile["records"] = saveTables(gateway, false);
  profile["files"] = saveFiles(gateway);
  for (const Section *section : Section::all()) {
    Json value = section->save();
    if (!value.is_null()) profile[std::string(section->name())] = std::move(value);
  }
  return profile;
}

}  // namespace gateway
