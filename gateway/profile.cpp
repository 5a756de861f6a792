#include "gateway/profile.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "gateway/gateway.hpp"
#include "gateway/section.hpp"
#include "gateway/text_file.hpp"
#include "records/codec.hpp"

PM_RECORD(gateway::Time,
          PM_FIELD(uptime).means("since the gateway started").means(platform::unit("s")),
          PM_FIELD(time).means("since 1970").means(platform::unit("s")));

namespace gateway {

namespace {

template <bool IsView>
void loadTables(Gateway &gateway, const Json &tables, const std::string &place) {
  requireObject(tables, place);
  for (const auto &[name, instances] : tables.items()) {
    const std::string tablePlace = placeOf(place, name);
    const Layout *layout = layoutByName(name);
    if (layout == nullptr || layout->isView() != IsView) {
      throw InputError(tablePlace, IsView ? "no such view" : "no such record");
    }
    requireObject(instances, tablePlace);
    for (const auto &[path, fields] : instances.items()) {
      const std::string instancePlace = placeOf(tablePlace, path);
      if (path.empty()) throw InputError(instancePlace, "an instance needs a path");
      fromJson(fields, instancePlace, shapeOf(*layout),
               gateway.store().create(*layout, path).data());
    }
  }
}

template <bool IsView>
Json saveTables(Gateway &gateway) {
  Json tables = Json::object();
  for (const Layout &layout : allLayouts()) {
    if (layout.isView() != IsView) continue;
    Json instances = Json::object();
    for (const std::string &path : gateway.store().paths(layout)) {
      if (gateway.store().isLeftToSection(layout, path)) continue;
      instances[path] =
          toJson(shapeOf(layout), gateway.store().row(layout, path).data(), {.omitsZeros = true});
    }
    if (!instances.empty()) tables[std::string(layout.name)] = std::move(instances);
  }
  return tables;
}

template <bool IsView>
Json tablesSchema() {
  Json tables = Json::object();
  for (const Layout &layout : allLayouts()) {
    if (layout.isView() != IsView) continue;
    tables[std::string(layout.name)] = {{"type", "object"},
                                        {"propertyNames", {{"minLength", 1}}},
                                        {"additionalProperties", schemaOf(shapeOf(layout))}};
  }
  return {{"type", "object"}, {"additionalProperties", false}, {"properties", std::move(tables)}};
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
  requireObject(files, place);
  for (const auto &[path, value] : files.items()) {
    const std::string filePlace = placeOf(place, path);
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

Json filesSchema() {
  const Json text = {{"type", "string"}};
  return {{"type", "object"},
          {"additionalProperties", {{"anyOf", {text, {{"type", "array"}, {"items", text}}}}}}};
}

void loadClock(Gateway &gateway, const Json &value, const std::string &place) {
  Time now = gateway.clock().now();
  fromJson(value, place, kShape<Time>, &now);
  for (const auto &[name, seconds] : value.items()) {
    integerFromJson(seconds, placeOf(place, name), 0, Clock::kLatest);
  }
  gateway.clock().set(now.uptime, now.time);
}

Json saveClock(Gateway &gateway) {
  return toJson(kShape<Time>, &gateway.clock().now());
}

Json clockSchema() {
  Json schema = schemaOf(kShape<Time>);
  for (Json &member : schema["properties"]) {
    member["minimum"] = 0;
    member["maximum"] = Clock::kLatest;
  }
  return schema;
}

/// A member of the profile that is no section, in the order in which they are loaded: sections look
/// at the clock and at the store.
struct Part {
  std::string name;
  const char *description;
  void (*load)(Gateway &gateway, const Json &value, const std::string &place);
  Json (*save)(Gateway &gateway);
  Json (*schema)();
};

const Part kParts[] = {
    {"clock", "When it is", loadClock, saveClock, clockSchema},
    {"views", "Views of the configuration by name and instance", loadTables<true>, saveTables<true>,
     tablesSchema<true>},
    {"records", "The platform's records that are no views, by name and instance", loadTables<false>,
     saveTables<false>, tablesSchema<false>},
    {"files", "Files by path, each a text or an array of lines", loadFiles, saveFiles, filesSchema},
};

/// Anything may stand there.
constexpr const char *kComment = "description";

bool isMember(std::string_view name) {
  const auto isNamed = [&](const Section *section) { return section->name() == name; };
  return name == kComment || std::ranges::find(kParts, name, &Part::name) != std::end(kParts) ||
         std::ranges::any_of(Section::all(), isNamed);
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
  requireObject(profile, "");
  for (const auto &entry : profile.items()) {
    if (!isMember(entry.key())) throw InputError(entry.key(), "no such member");
  }
  for (const Part &part : kParts) {
    if (profile.contains(part.name)) part.load(gateway, profile[part.name], part.name);
  }
  for (Section *section : Section::all()) {
    const std::string name(section->name());
    if (profile.contains(name)) section->load(profile[name], name);
  }
  for (Section *section : Section::all()) section->complete();
}

Json saveProfile(Gateway &gateway) {
  Json profile = Json::object();
  for (const Part &part : kParts) profile[part.name] = part.save(gateway);
  for (const Section *section : Section::all()) {
    Json value = section->save();
    if (!value.is_null()) profile[std::string(section->name())] = std::move(value);
  }
  return profile;
}

Json profileSchema() {
  Json members = {{kComment, {{"description", "Anything"}}}};
  for (const Part &part : kParts) {
    members[part.name] = {{"description", part.description}};
    members[part.name].update(part.schema());
  }
  for (const Section *section : Section::all()) {
    if (section->shape() == nullptr) continue;
    Json &member = members[std::string(section->name())];
    member = {{"description", section->description()}};
    member.update(schemaOf(*section->shape()));
  }
  return {{"$schema", "http://json-schema.org/draft-07/schema#"},
          {"title", "Profile of a virtual gateway"},
          {"type", "object"},
          {"additionalProperties", false},
          {"properties", std::move(members)}};
}

}  // namespace gateway
