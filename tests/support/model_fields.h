#pragma once

#include <array>
#include <cstddef>

/// The offsets of each kind's fields in its record, and their inputs on its editor.
namespace quillbox::test {

enum class Is { text, padded, amount, signedAmount, whole, date, flag, choice };
enum class Fills { nothing, today, newYear1980 };

/// An input of an editor and its field's place in the record.
struct ModelInput {
  Is is;
  const char* name;
  std::size_t offset;
  std::size_t width;  ///< bytes
  int choices = 0;    ///< entries of a list
  Fills fills = Fills::nothing;
  bool searchedAsDate = false;
  bool searched = true;

  bool isText() const { return is == Is::text || is == Is::padded; }
  bool isBox() const { return is != Is::flag && is != Is::choice; }
};

/// A sort key in a record: one of two bytes is a signed number, a longer one a text.
struct KeyPlace {
  std::size_t offset;
  std::size_t width;
  const char* passCaption = "";  ///< of the board

  bool isNumber() const { return width == 2; }
};

namespace model_keys {
inline constexpr KeyPlace music[] = {{0, 50}, {50, 50}, {100, 50}, {2188, 2}, {2334, 2}};
inline constexpr KeyPlace video[] = {{0, 50}, {552, 50}, {602, 2}, {50, 2}};
inline constexpr KeyPlace software[] = {{0, 50}, {610, 50}, {54, 2}, {50, 2}};
inline constexpr KeyPlace comics[] = {{0, 50, "Sorting by Book Title"},
                                      {50, 50, "Sorting by Comic Title"},
                                      {350, 50, "Sorting by Artists"}};
inline constexpr KeyPlace books[] = {{0, 50, "Sorting by Author"},
                                     {100, 50, "Sorting by Publisher"},
                                     {152, 2, "Sorting by Media Type"},
                                     {150, 2, "Sorting by Genre"}};
inline constexpr KeyPlace media[] = {{0, 64}};
}  // namespace model_keys

namespace model_inputs {
using enum Is;
inline constexpr auto music = std::to_array<ModelInput>({
    {padded, "txtArtist", 0, 50},
    {padded, "txtAlbum", 50, 50},
    {padded, "txtRecordCo", 100, 50},
    {.is = padded,
     .name = "txtAquireDate",
     .offset = 2150,
     .width = 20,
     .fills = Fills::today,
     .searchedAsDate = true},
    {amount, "txtAquireCost", 2170, 8},
    {signedAmount, "txtCurrCost", 2178, 8},
    {choice, "cmbMediaType", 2188, 2, 8},
    {flag, "chkHasBook", 2186, 2},
    {flag, "chkCurrLoaned", 2190, 2},
    {padded, "txtBorrower", 2192, 50},
    {.is = padded, .name = "txtDateLoaned", .offset = 2242, .width = 20, .searchedAsDate = true},
    {.is = padded, .name = "txtDueDate", .offset = 2262, .width = 20, .searchedAsDate = true},
    {flag, "chkBookLoaned", 2282, 2},
    {padded, "txtNotes", 2284, 50},
    {choice, "cmbGenre", 2334, 2, 15},
    {padded, "txtBarCode", 2336, 36},
});
inline constexpr auto video = std::to_array<ModelInput>({
    {text, "txtVidTitle", 0, 50},
    {text, "txtPublisher", 552, 50},
    {choice, "cmbMediaType", 602, 2, 8},
    {flag, "chkCommercial", 50, 2},
    {amount, "txtPurPrice", 604, 8},
    {amount, "txtCurrPrice", 612, 8},
    {date, "txtAquireDate", 620, 8, 0, Fills::newYear1980},
    {text, "txtNotes", 628, 50},
});
inline constexpr auto software = std::to_array<ModelInput>({
    {text, "txtSftWare_0", 0, 50},
    {text, "txtSftWare_1", 610, 50},
    {choice, "cmbMediaType", 54, 2, 5},
    {flag, "chkCommercial", 50, 2},
    {flag, "chkShareWare", 52, 2},
    {flag, "chkCDRequired", 660, 2},
    {whole, "txtSftWare_2", 56, 2},
    {whole, "txtSftWare_3", 58, 2},
    {text, "txtSftWare_4", 560, 50},
});
inline constexpr auto comics = std::to_array<ModelInput>({
    {text, "txtCmic_0", 0, 50},
    {text, "txtCmic_1", 50, 50},
    {text, "txtCmic_2", 350, 50},
    {text, "txtCmic_3", 404, 50},
    {text, "txtCmic_4", 454, 50},
    {text, "txtCmic_5", 504, 50},
    {text, "txtCmic_6", 590, 50},
    {amount, "txtCmic_7", 554, 8},
    {amount, "txtCmic_8", 562, 8},
    {.is = text,
     .name = "txtCmic_9",
     .offset = 570,
     .width = 20,
     .fills = Fills::newYear1980,
     .searchedAsDate = true},
    {.is = flag, .name = "chkBagged", .offset = 400, .width = 2, .searched = false},
    {.is = flag, .name = "chkBoarded", .offset = 402, .width = 2, .searched = false},
});
inline constexpr auto books = std::to_array<ModelInput>({
    {text, "txtBooks_0", 0, 50},
    {text, "txtBooks_1", 50, 50},
    {text, "txtBooks_2", 100, 50},
    {choice, "cmbGenre", 150, 2, 6},
    {choice, "cmbMedia", 152, 2, 4},
    {text, "txtBooks_3", 154, 50},
});
inline constexpr auto media = std::to_array<ModelInput>({
    {text, "txtFileName", 0, 64},
    {.is = text, .name = "txtPath", .offset = 64, .width = 128, .searched = false},
    {.is = text, .name = "txtDesc", .offset = 200, .width = 128, .searched = false},
});
}  // namespace model_inputs

}  // namespace quillbox::test
