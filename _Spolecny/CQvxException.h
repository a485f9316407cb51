#pragma once

#include <array>
#include <exception>
#include <string_view>

// The one exception type of the program's own logic. It carries a ready-made text (message, line
// and source module) in Windows-1250, cut to 511 characters; what() returns it.
class CQvxException : public std::exception {
public:
    static constexpr std::size_t kCapacity = 512;  // bytes, terminator included

    // "<message>, Line <line>, \n<source module>"
    CQvxException(std::u16string_view message, int line, std::u16string_view sourceModule);

    // A bounded copy of a wide text into a fixed buffer failed with `errorCode`.
    explicit CQvxException(int errorCode);

    const char* what() const noexcept override { return text_.data(); }

private:
    std::array<char, kCapacity> text_{};
};

// Source modules named in exception texts; users see them, so they keep the program's own paths.
namespace SourceModule {
inline constexpr std::u16string_view kFunkce = u"_Spolecny\\CQvxFunkce";
inline constexpr std::u16string_view kRegistry = u"_Spolecny\\CQvxRegistry";
inline constexpr std::u16string_view kMaterial = u"_Spolecny\\_Velmora\\CQvxMaterial";
inline constexpr std::u16string_view kMaterialList = u"_Spolecny\\_Velmora\\CQvxSezMaterialu";
inline constexpr std::u16string_view kMaterialEditor = u"_Spolecny\\_Velmora\\QxDlgMatEdituj";
}  // namespace SourceModule
