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

void CSpriteLayer::BackgroundLost() {
  if (GetParent() != nullptr) {
    GetParent()->BackgroundLost();
  }
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
  myChildren.Remove(sprite);
}

void CSpriteLayer::RestoreDownTo(CSprite* sprite) {
  MarkChanged();
  CSprite* canvas = GetCanvas();
  for (CSprite* child : myChildren.Items()) {
    child->CheckOverlap(canvas);
    if (child == sprite) {
      break;
    }
  }
  RaiseDepthMark(sprite->myZ);
}

void CSpriteLayer::InsertByDepth(CSprite* sprite) {
  MarkChanged();
  CSprite* canvas = GetCanvas();
  std::size_t position = 0;
  for (CSprite* child : myChildren.Items()) {
    if (child->myZ >= sprite->myZ) {
      break;
    }
    child->CheckOverlap(canvas);
    ++position;
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
