#include "gfx/sprite/spritelayer.h"

#include "gfx/sprite/spritetypes.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace vask {
namespace {

const CSpriteTypeRegistrar theRegistrar(kLayerSprite, NewSprite<CSpriteLayer>);

}  // namespace

CSpriteLayer::CSpriteLayer() : myDepthMark(std::numeric_limits<int>::min()) {}

CSpriteLayer::~CSpriteLayer() {
  LeaveLayer();
  for (CWalkList<CSprite>* list : {&myChildren, &myHiddenChildren}) {
    CWalkList<CSprite>::CWalk walk(*list);
    while (CSprite* child = walk.Next()) {
      Orphan(child);
    }
  }
}

void CSpriteLayer::Orphan(CSprite* sprite) {
  sprite->myParent = nullptr;
  sprite->myHiddenParent = nullptr;
  sprite->myInDirtyList = false;
  sprite->ForgetBackground();
}

int CSpriteLayer::GetTypeId() const { return kLayerSprite.number; }

// CheckOverlap only restores pixels: it changes no list of children.
void CSpriteLayer::CheckOverlap(CSprite* canvas) {
  for (CSprite* child : myChildren.Items()) {
    child->CheckOverlap(canvas);
  }
  if (!myChildren.IsEmpty()) {
    RaiseDepthMark(myChildren.Items().back()->myZ);
  }
  CSprite::CheckOverlap(canvas);
}

// Painting does not change a list either.
bool CSpriteLayer::Draw(CSprite* canvas) {
  bool drew = CSprite::Draw(canvas);  // the layer's own picture is behind its children
  const std::vector<CSprite*>& children = myChildren.Items();
  for (std::size_t i = children.size(); i-- > 0;) {
    CSprite* child = children[i];
    if (child->myZ <= myDepthMark) {
      myDepthMark = child->myZ;
      drew = child->Draw(canvas) || drew;
    }
  }
  if (myDepthMark > std::numeric_limits<int>::min()) {
    --myDepthMark;
  }
  myLiftedCount = 0;
  return drew;
}

void CSpriteLayer::AddChild(CSprite* sprite) {
  if (sprite == nullptr || IsInside(sprite)) {
    return;
  }
  sprite->LeaveLayer();
  sprite->myParent = this;
  InsertByDepth(sprite);
}

void CSpriteLayer::RemoveChild(CSprite* sprite) {
  if (myChildren.Contains(sprite)) {
    Detach(sprite);
  } else if (!myHiddenChildren.Remove(sprite)) {
    return;
  }
  Orphan(sprite);
}

void CSpriteLayer::HideChild(CSprite* sprite) {
  if (!myChildren.Contains(sprite)) {
    return;
  }
  Detach(sprite);
  Orphan(sprite);
  sprite->myHiddenParent = this;
  myHiddenChildren.Append(sprite);
}

void CSpriteLayer::ShowChild(CSprite* sprite) {
  if (!myHiddenChildren.Remove(sprite)) {
    return;
  }
  sprite->myHiddenParent = nullptr;
  sprite->myParent = this;
  InsertByDepth(sprite);
}

void CSpriteLayer::RaiseDepthMark(int z) { myDepthMark = std::max(myDepthMark, z); }

int CSpriteLayer::GetDepthMark() const { return myDepthMark; }

void CSpriteLayer::LoseBackground() {
  CSpriteLayer* outermost = this;
  while (outermost->GetParent() != nullptr) {
    outermost = outermost->GetParent();
  }
  outermost->myHasLostBackground = true;
}

void CSpriteLayer::AddDirty(CSprite* sprite) {
  sprite->myInDirtyList = true;
  RestoreDownTo(sprite);
  sprite->myDirtyState = kOffCanvas;  // also outside the canvas: the change may move it there
}

void CSpriteLayer::SetCanvas(CSprite* canvas) { myCanvas = canvas; }

CSprite* CSpriteLayer::GetCanvas() const {
  return GetParent() != nullptr ? GetParent()->GetCanvas() : myCanvas;
}

void CSpriteLayer::Detach(CSprite* sprite) {
  RestoreDownTo(sprite);
  const std::vector<CSprite*>& children = myChildren.Items();
  const auto position = std::find(children.begin(), children.end(), sprite) - children.begin();
  if (static_cast<std::size_t>(position) < myLiftedCount) {
    --myLiftedCount;
  }
  myChildren.Remove(sprite);
}

void CSpriteLayer::RestoreDownTo(CSprite* sprite) {
  MarkChanged();
  if (CSprite* canvas = GetCanvas()) {
    while (sprite->myDirtyState != kOffCanvas && myLiftedCount < myChildren.Size()) {
      LiftNext(canvas);
    }
  }
  RaiseDepthMark(sprite->myZ);
}

// One that is empty or beside the canvas counts as taken off, too: there is nothing to restore.
void CSpriteLayer::LiftNext(CSprite* canvas) {
  CSprite* child = myChildren.Items()[myLiftedCount++];
  child->CheckOverlap(canvas);
  child->myDirtyState = kOffCanvas;
}

void CSpriteLayer::InsertByDepth(CSprite* sprite) {
  MarkChanged();
  const std::vector<CSprite*>& children = myChildren.Items();
  const auto isInFront = [](const CSprite* child, int z) { return child->myZ < z; };
  const auto place = std::lower_bound(children.begin(), children.end(), sprite->myZ, isInFront);
  const auto position = static_cast<std::size_t>(place - children.begin());
  if (CSprite* canvas = GetCanvas()) {
    while (myLiftedCount < position) {
      LiftNext(canvas);
    }
  }
  myChildren.Insert(position, sprite);
  sprite->ForgetBackground();
  RaiseDepthMark(sprite->myZ);
}

bool CSpriteLayer::IsInside(const CSprite* sprite) const {
  const CSprite* outer = this;
  while (outer != nullptr && outer != sprite) {
    outer = outer->myParent != nullptr ? outer->myParent : outer->myHiddenParent;
  }
  return outer != nullptr;
}

void CSpriteLayer::ForgetBackground() {
  CSprite::ForgetBackground();
  for (CSprite* child : myChildren.Items()) {
    child->ForgetBackground();
  }
  myDepthMark = std::numeric_limits<int>::max();
}

}  // namespace vask
