#include "update/check/UpdateInformation.h"

#include <algorithm>

#include "toolkit/RegEx.h"
#include "toolkit/Text.h"
#include "update/check/HTTPSSocket.h"
#include "update/check/KajuLocale.h"
#include "update/check/Properties.h"
#include "update/check/Timestamps.h"
#include "update/check/Versions.h"

namespace Kaju {
namespace {

using Row = Property<UpdateInformation>;

constexpr std::array properties{
    Row{"AppName", &UpdateInformation::AppName},
    Row{"Expires", &UpdateInformation::Expires},
    Row{"ImageURL", &UpdateInformation::ImageURL},
    Row{"MinimumRequiredVersion", &UpdateInformation::MinimumRequiredVersion},
    Row{"ReleaseNotes", &UpdateInformation::ReleaseNotes},
    Row{"RequiresPayment", &UpdateInformation::RequiresPayment},
    Row{"UseTransparency", &UpdateInformation::UseTransparency},
    Row{"Version", &UpdateInformation::Version},
};

const Row& FindProperty(std::string_view name) {
  const auto* row = std::ranges::find(properties, name, &Row::Name);
  if (row == properties.end()) throw toolkit::KeyNotFoundException("There is no property " + std::string(name) + ".");
  return *row;
}

bool BinaryNeedsExecutableName(std::string_view name) { return !name.starts_with("Mac"); }

std::string PlatformWord(std::string_view binaryName) {
  if (binaryName.starts_with("Mac")) return "Mac";
  if (binaryName.starts_with("Win")) return "Windows";
  if (binaryName.starts_with("Lin")) return "Linux";
  throw KajuException("Unknown platform", "Kaju.UpdateInformation.IsInvalid");
}

/// The index of a name in BinaryNames.
std::size_t IndexOf(std::string_view name) {
  const auto* const known = std::ranges::find(UpdateInformation::BinaryNames, name);
  if (known == UpdateInformation::BinaryNames.end()) {
    throw toolkit::KeyNotFoundException("There is no file " + std::string(name) + ".");
  }
  return static_cast<std::size_t>(known - UpdateInformation::BinaryNames.begin());
}

std::size_t IndexOf(BuildTarget target) {
  const bool isWide = target.Bits == Width::Bits64;
  switch (target.Platform) {
    case System::Mac:
      return IndexOf("MacBinary");
    case System::Windows:
      return IndexOf(isWide ? "WindowsBinary64bit" : "WindowsBinary");
    case System::Linux:
      return IndexOf(isWide ? "LinuxBinary64bit" : "LinuxBinary");
  }
  throw KajuException("Unknown platform", "Kaju.UpdateInformation.PlatformBinary");
}

std::shared_ptr<const toolkit::Picture> FetchPicture(const std::string& url, const toolkit::StillWanted& wanted) {
  try {
    HTTPSSocket socket;
    socket.Wanted = wanted;
    socket.LargestBody = toolkit::Picture::mostBytes;
    const std::string resolved = socket.GetRedirectAddress(url);
    if (!toolkit::IsWanted(wanted)) return nullptr;
    std::string body = socket.Get(resolved, HTTPSSocket::kTimeoutSeconds);
    return body.empty() ? nullptr : toolkit::Picture::FromData(std::move(body), wanted);
  } catch (const toolkit::RuntimeException&) {
    return nullptr;  // the update is shown without a picture
  }
}

}  // namespace

UpdateInformation::UpdateInformation(const toolkit::JSONItem& data) {
  JSONToProperties<UpdateInformation>(data, properties, *this);
  const boost::json::object& members = RequireObject(data);
  for (std::size_t index = 0; index < binaries_.size(); ++index) {
    const toolkit::JSONItem* binary = members.if_contains(BinaryNames[index]);
    if (binary == nullptr) continue;
    binaries_[index] = std::make_shared<BinaryInformation>(BinaryNeedsExecutableName(BinaryNames[index]), *binary);
  }
}

// Pictures are immutable, so the copy shares it.
UpdateInformation::UpdateInformation(const UpdateInformation& other) : Information(other), image_(other.image_) {
  for (const Row& row : properties) std::visit([&](auto member) { this->*member = other.*member; }, row.Member);
  std::ranges::transform(other.binaries_, binaries_.begin(), [](const BinaryPointer& binary) {
    return binary ? std::make_shared<BinaryInformation>(*binary) : nullptr;
  });
}

int UpdateInformation::StageCode() const { return StageCodeOf(Version); }

double UpdateInformation::VersionAsDouble() const { return VersionToDouble(Version); }

bool UpdateInformation::IsRequiredFor(double version) const {
  return VersionToDouble(MinimumRequiredVersion) > version && !MinimumRequiredVersion.empty();
}

bool UpdateInformation::IsExpiredAt(std::chrono::sys_seconds moment) const {
  return Expires && moment > MomentOf(*Expires);
}

std::shared_ptr<const toolkit::Picture> UpdateInformation::Image(const toolkit::StillWanted& wanted) const {
  if (!image_ && !toolkit::Trim(ImageURL).empty()) image_ = FetchPicture(ImageURL, wanted);
  return image_;
}

UpdateInformation::BinaryPointer UpdateInformation::PlatformBinary32bit(System system) const {
  return binaries_.at(IndexOf({system, Width::Bits32}));
}

UpdateInformation::BinaryPointer UpdateInformation::PlatformBinary64bit(System system) const {
  return binaries_.at(IndexOf({system, Width::Bits64}));
}

UpdateInformation::BinaryPointer UpdateInformation::PlatformBinaryAny(System system) const {
  const BinaryPointer wide = PlatformBinary64bit(system);
  return wide ? wide : PlatformBinary32bit(system);
}

UpdateInformation::BinaryPointer UpdateInformation::PlatformBinarySameBitness(BuildTarget target) const {
  return binaries_.at(IndexOf(target));
}

UpdateInformation::BinaryPointer UpdateInformation::FetchBinary(std::string_view name) {
  BinaryPointer& binary = binaries_.at(IndexOf(name));
  if (!binary) binary = std::make_shared<BinaryInformation>(BinaryNeedsExecutableName(name));
  return binary;
}

void UpdateInformation::RemoveBinary(std::string_view name) { binaries_.at(IndexOf(name)) = nullptr; }

toolkit::Variant UpdateInformation::GetByName(std::string_view name) const {
  if (name == "StageCode") return toolkit::JSONItem(StageCode());
  if (name == "VersionAsDouble") return toolkit::JSONItem(VersionAsDouble());
  return std::visit([&](auto member) { return Kaju::ToJSON(this->*member); }, FindProperty(name).Member);
}

void UpdateInformation::SetByName(std::string_view name, const toolkit::JSONItem& value) {
  const Row& row = FindProperty(name);
  const auto* text = value.if_string();
  const bool isYes = text != nullptr && toolkit::EqualIgnoringCase(*text, "yes");
  if (const auto* truth = std::get_if<bool UpdateInformation::*>(&row.Member); truth != nullptr && isYes) {
    this->*(*truth) = true;
  } else {
    std::visit([&](auto member) { Convert(value, this->*member); }, row.Member);
  }
}

toolkit::JSONItem UpdateInformation::ConvertToJSON() const {
  toolkit::JSONItem json = PropertiesToJSON<UpdateInformation>(properties, *this);
  for (std::size_t index = 0; index < binaries_.size(); ++index) {
    if (binaries_[index]) json.get_object()[BinaryNames[index]] = binaries_[index]->ToJSON();
  }
  return json;
}

bool UpdateInformation::Event_IsInvalid(std::string& reason) const {
  static const toolkit::RegEx form(R"((?mi-Us)\A\d+(\.\d+){0,2}(?:[dab]\d+|\x20\(\d+\))?\z)");
  if (!form.IsIn(Version)) {
    reason =
        KajuLocale::kVersionMustBeInFormReason() + ": 1, 1.2, 1.2.3, 1.2d4, 1.2a4, 1.2b4, 1.2.4b4, 1.3.4 (232), etc.";
    return true;
  }
  if (toolkit::Trim(AppName).empty()) {
    reason = KajuLocale::kMissingAppNameReason();
    return true;
  }
  for (std::size_t index = 0; index < binaries_.size(); ++index) {
    const BinaryPointer& binary = binaries_[index];
    if (!binary || binary->IsValid()) continue;
    reason = PlatformWord(BinaryNames[index]) + " " + KajuLocale::kBinaryInfoInvalidReason() + ": " +
             binary->InvalidReason();
    return true;
  }
  return false;
}

}  // namespace Kaju
