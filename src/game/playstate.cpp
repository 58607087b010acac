#include "game/playstate.h"

#include "game/gamestate.h"
#include "game/physics/arena.h"
#include "game/play.h"
#include "platform/random.h"

namespace brumble {
namespace {

// Puts values under the names of one subject.
class CSubject {
 public:
  CSubject(CStateFields& fields, const char* subject, int index = -1)
      : myFields(fields), mySubject(subject), myIndex(index) {}

  template <typename T>
  void Add(const char* name, T value) {
    if constexpr (std::is_same_v<T, float>) {
      myFields.push_back(SStateField::Of(mySubject, myIndex, name, value));
    } else {
      myFields.push_back(
          SStateField::Of(mySubject, myIndex, name, static_cast<std::int32_t>(value)));
    }
  }

 private:
  CStateFields& myFields;
  const char* mySubject;
  int myIndex;
};

void AddGame(CStateFields& fields, const CPlay& play) {
  const SGameState& state = GameState();
  const CGameLogic& logic = play.GetGameLogic();
  CSubject game(fields, "game");
  game.Add("bodies", play.GetWorld().GetBodyCount());
  game.Add("random state", vask::platform::RandState());
  game.Add("kittens left", state.kittensLeft);
  game.Add("kittens in play", state.kittensInPlay);
  game.Add("stake", state.stake);
  game.Add("game over", state.isGameOver);
  game.Add("last removal", state.lastRemoval);
  game.Add("last hit sound", state.lastHitSound);
  game.Add("score board", logic.GetScoreBoard().GetTarget());
  game.Add("stake board", logic.GetStakeBoard().GetTarget());
  game.Add("kittens left board", logic.GetKittensLeftBoard().GetTarget());
  game.Add("open door", CPhysicsWorld::IsDoorOpen());
  game.Add("door openings", logic.GetStory().doorOpenings);
}

void AddBody(CStateFields& fields, const CPhysicsBody& body, int index) {
  CSubject subject(fields, "body", index);
  subject.Add("x", body.x);
  subject.Add("y", body.y);
  subject.Add("angle", body.angle);
  subject.Add("vx", body.vx);
  subject.Add("vy", body.vy);
  subject.Add("angular velocity", body.angularVelocity);
  subject.Add("inverse mass", body.invMass);
  subject.Add("health", body.bridge != nullptr ? body.bridge->myHealth : 0.0F);
}

void AddRecord(CStateFields& fields, const CKittenRecord& record, int index) {
  CSubject subject(fields, "kitten", index);
  subject.Add("touched this tick", record.myTouchedThisTick);
  subject.Add("touch x", record.myTouchPosition.x);
  subject.Add("touch y", record.myTouchPosition.y);
  subject.Add("damage bonus", record.myDamageBonus);
  subject.Add("last health", record.myLastHealth);
  subject.Add("last toucher", record.myLastToucher);
  subject.Add("last spin", record.myLastSpinTime);
  subject.Add("spins", record.mySpinCount);
  subject.Add("touches", record.myTouches.size());
  subject.Add("score", record.myScore);
  subject.Add("rest start", record.myRestStart);
  subject.Add("push wait", record.myPushWait);
}

}  // namespace

CStateFields StateOf(const CPlay& play) {
  CStateFields fields;
  AddGame(fields, play);
  const std::vector<CPhysicsBody>& bodies = play.GetWorld().GetBodies();
  for (std::size_t index = kMonsterIndex; index < bodies.size(); ++index) {
    AddBody(fields, bodies[index], static_cast<int>(index));
  }
  for (int index = kFirstKittenIndex; index < play.GetWorld().GetBodyCount(); ++index) {
    const CKittenRecord* const record = play.GetGameLogic().GetRecord(index);
    CSubject(fields, "kitten", index).Add("record", record != nullptr);
    if (record != nullptr) {
      AddRecord(fields, *record, index);
    }
  }
  return fields;
}

}  // namespace brumble
