#include "update/check/UpdateInformation.h"

#include <algorithm>

#include "toolkit/RegEx.h"
#include "toolkit/Text.h"
#include "update/check/HTTPSSocket.h"
#include "update/check/KajuLocale.h"
#include "update/check/Properties.h"
#include "update/check/Versions.h"

namespace Kaju {
namespace {

constexpr int timeoutSeconds = 5;
constexpr int mostRedirects = 5;
constexpr int finalStage = 3;
constexpr std::uint64_t largestPicture = std::uint64_t{16} << 20U;

using Row = Property<UpdateInformation>;

constexpr std::array properties{
    Row{"AppName", &UpdateInformation::AppName},
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

std::string_view BinaryName(System system, Width width) {
  if (system == System::Mac) return "MacBinary";
  if (system == System::Windows) return width == Width::Bits64 ? "WindowsBinary64bit" : "WindowsBinary";
  return width == Width::Bits64 ? "LinuxBinary64bit" : "LinuxBinary";
}

std::shared_ptr<const toolkit::Picture> FetchPicture(const std::string& url) {
  try {
    HTTPSSocket socket;
    socket.LargestBody = largestPicture;
    std::string body = socket.Get(socket.GetRedirectAddress(url, timeoutSeconds, mostRedirects), timeoutSeconds);
    return body.empty() ? nullptr : toolkit::Picture::FromData(std::move(body));
  } catch (const toolkit::RuntimeException&) {
    return nullptr;  // an update without a picture is shown all the same
  }
}

}  // namespace

UpdateInformation::UpdateInformation(const toolkit::JSONItem& data) {
  JSONToProperties<UpdateInformation>(data, properties, *this);
  const boost::json::object& members = RequireObject(data);
  for (const std::string_view name : BinaryNames) {
    const toolkit::JSONItem* binary = members.if_contains(name);
    if (binary == nullptr) continue;
    mBinaries[name] = std::make_shared<BinaryInformation>(BinaryNeedsExecutableName(name), *binary);
  }
}

// The picture never changes, so the copy shares it.
UpdateInformation::UpdateInformation(const UpdateInformation& other) : Information(other), mImage(other.mImage) {
  for (const Row& row : properties) std::visit([&](auto member) { this->*member = other.*member; }, row.Member);
  for (const auto& [name, binary] : other.mBinaries) mBinaries[name] = std::make_shared<BinaryInformation>(*binary);
}

int UpdateInformation::StageCode() const {
  static const toolkit::RegEx letter("[dab]");
  const auto match = letter.Search(Version);
  if (!match) return finalStage;
  return static_cast<int>(std::string_view("dab").find(toolkit::LowerCase(match->SubExpression(0))));
}

double UpdateInformation::VersionAsDouble() const { return VersionToDouble(Version); }

std::shared_ptr<const toolkit::Picture> UpdateInformation::Image() const {
  if (!mImage && !toolkit::Trim(ImageURL).empty()) mImage = FetchPicture(ImageURL);
  return mImage;
}

UpdateInformation::BinaryPointer UpdateInformation::PlatformBinary32bit(System system) const {
  return Find(BinaryName(system, Width::Bits32));
}

UpdateInformation::BinaryPointer UpdateInformation::PlatformBinary64bit(System system) const {
  return Find(BinaryName(system, Width::Bits64));
}

UpdateInformation::BinaryPointer UpdateInformation::PlatformBinaryAny(System system) const {
  const BinaryPointer wide = PlatformBinary64bit(system);
  return wide ? wide : PlatformBinary32bit(system);
}

UpdateInformation::BinaryPointer UpdateInformation::PlatformBinarySameBitness(BuildTarget target) const {
  return Find(BinaryName(target.Platform, target.Bits));
}

UpdateInformation::BinaryPointer UpdateInformation::FetchBinary(std::string_view name) {
  const auto* const known = std::ranges::find(BinaryNames, name);
  if (known == BinaryNames.end()) throw toolkit::KeyNotFoundException("There is no file " + std::string(name) + ".");
  BinaryPointer& binary = mBinaries[*known];
  if (!binary) binary = std::make_shared<BinaryInformation>(BinaryNeedsExecutableName(name));
  return binary;
}

UpdateInformation::BinaryPointer UpdateInformation::Find(std::string_view name) const {
  const auto place = mBinaries.find(name);
  return place == mBinaries.end() ? nullptr : place->second;
}

toolkit::Variant UpdateInformation::GetByName(std::string_view name) const {
  if (name == "StageCode") return toolkit::JSONItem(StageCode());
  if (name == "VersionAsDouble") return toolkit::JSONItem(VersionAsDouble());
  return std::visit([&](auto member) { return toolkit::JSONItem(this->*member); }, FindProperty(name).Member);
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
  for (const std::string_view name : BinaryNames) {
    if (const BinaryPointer binary = Find(name)) json.get_object()[name] = binary->ToJSON();
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
  for (const std::string_view name : BinaryNames) {
    const BinaryPointer binary = Find(name);
    if (!binary || binary->IsValid()) continue;
    reason = PlatformWord(name) + " " + KajuLocale::kBinaryInfoInvalidReason() + ": " + binary->InvalidReason();
    return true;
  }
  return false;
}

}  // namespace Kaju
