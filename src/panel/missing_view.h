#pragma once

#include <optional>
#include <string>
#include <vector>

#include "overview/missing_files.h"
#include "panel/grouped_view.h"
#include "platform/file_system.h"

namespace quillbox {

/// The items of a media-file kind whose files no longer exist.
class MissingView : public GroupedView {
 public:
  MissingView(FileSystem& files, const CollectionKind& kind, PanelOwner owner);

  void take(int item, std::span<const std::byte> record) override;
  void cutTo(int count) override;

 protected:
  void forget() override;
  Shown gather() override;
  QString textOf(const GroupedCell& cell) const override;
  std::string idOf(const GroupedCell& cell) const override;
  int itemOf(const GroupedCell& cell) const override;
  void choose(const GroupedCell& cell) override;

 private:
  FileSystem& files_;
  const CollectionKind& kind_;
  PanelOwner owner_;
  std::optional<MissingFiles> missing_;
  std::vector<std::string> paths_;  // for each item
  std::vector<int> gone_;           // as shown
};

}  // namespace quillbox
