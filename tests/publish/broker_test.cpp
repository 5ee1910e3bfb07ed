#include <fmt/format.h>
#include <gmock/gmock.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "platform/base/TarnError.h"
#include "tests/publish/PublishRig.h"
#include "tests/support/FailureOf.h"
#include "tests/support/LoopbackServer.h"

namespace tarnlog {
namespace {

using namespace std::chrono_literals;
using test::becomes;
using test::Broker;
using test::PublishRig;
using test::quickSetup;
using test::Subscriber;
using test::TempFolder;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class WithBroker : public testing::Test {
 protected:
  void SetUp() override {
    if (!Broker::isInstalled()) GTEST_SKIP() << "mosquitto is not installed";
  }

  const TempFolder folder_;
};

using Publishing = WithBroker;

/// The last answer that the broker has of a file; 0 when it is not published whole.
std::size_t publishedOf(const std::string& path) {
  std::ifstream file(PublishedNote::pathOf(path));
  const PublishedNote note = PublishedNote::parse(std::string{std::istreambuf_iterator<char>(file), {}});
  return note.places.size() == 1 && note.places[0].complete ? note.places[0].acknowledged : 0;
}

struct ByHand {
  bool whole = false;
  std::string told;
};

ByHand publishByHand(PublishSetup setup, const std::string& path) {
  setup.live = false;
  Publisher publisher(setup);
  publisher.add(path);
  publisher.end(60s);
  ByHand outcome;
  becomes([&] { return publisher.isOver(); });
  for (const Publisher::Notice& notice : publisher.takeNotices()) outcome.told += notice.text + "\n";
  outcome.whole = publisher.isWhole();
  return outcome;
}

TEST_F(Publishing, GivesEachAnswerItsTopicAndTellsWhatItMeans) {
  const Broker broker(folder_.path());
  Subscriber subscriber(broker.port());
  PublishSetup setup = quickSetup(broker.address());
  setup.terms.vehicle = "Car #1";
  PublishRig rig(folder_.path(), setup);
  rig.pedal();
  rig.recordFrom(2);
  rig.start();
  rig.cycles(20);
  EXPECT_TRUE(becomes([&] { return subscriber.step(), !subscriber.newest["fleet/Car %231/state"].empty(); }));
  rig.stop();
  EXPECT_TRUE(rig.finish()) << rig.notices();
  EXPECT_TRUE(subscriber.gets(40));
  EXPECT_THAT(rig.notices(), IsEmpty());
  EXPECT_EQ(subscriber.newest["fleet/Car %231/state"], R"({"state":"ended"})");
  EXPECT_EQ(
      subscriber.newest["fleet/Car %231/Engine/Status/description"],
      R"({"ecu":"Engine","request":"Status","data":{"Speed":{"unit":"km/h","minimum":0,"maximum":100}}})");
  EXPECT_EQ(subscriber.newest["fleet/Car %231/Brakes/21 81/description"],
            R"({"ecu":"Brakes","request":"21 81","data":{"Pedal":{"minimum":0,"maximum":100,)"
            R"("labels":[{"value":0,"text":"Released"},{"value":1,"text":"Pressed"}]}}})");
  const std::string last = subscriber.newest["fleet/Car %231/Engine/Status"];
  EXPECT_THAT(last,
              testing::MatchesRegex(
                  R"(\{"t":17948523[0-9]+,"acquisition":"01[0]+","recording":"16-11-26_19h05mn[0-9]+.txt",)"
                  R"("seq":39,"values":\{"Speed":5\}\})"));
  EXPECT_EQ(publishedOf(rig.path_), 40U);
}

TEST_F(Publishing, LeavesOutWhatIsNotWanted) {
  const Broker broker(folder_.path());
  Subscriber subscriber(broker.port());
  PublishSetup setup = quickSetup(broker.address());
  setup.terms.selection = {{{"Speed", 100ms}}, 0ms};
  PublishRig rig(folder_.path(), setup);
  rig.pedal();
  rig.start();
  rig.cycles(100);
  rig.stop();
  EXPECT_TRUE(rig.finish());
  subscriber.gets(20);
  EXPECT_NEAR(static_cast<double>(subscriber.times.size()), 20, 1) << "of 200 answers in two seconds";
  EXPECT_EQ(subscriber.newest.count("fleet/Car/Brakes/21 81/description"), 0U);

  // By hand, the same again, and nothing a third time.
  const std::size_t answers = subscriber.times.size();
  for (const bool again : {true, false}) {
    PublishSetup byHand = setup;
    byHand.terms.selection = {};
    byHand.asNoted = true;
    byHand.terms.again = again;
    EXPECT_TRUE(publishByHand(byHand, rig.path_).whole);
  }
  EXPECT_TRUE(
      becomes([&] { return subscriber.step(), subscriber.answers >= static_cast<int>(2 * answers); }));
  EXPECT_EQ(subscriber.times.size(), answers);
  EXPECT_EQ(subscriber.answers, static_cast<int>(2 * answers));
}

/// A recorder of its own process, killed when it has recorded so much.
void recordAndDie(const std::string& folder, const std::string& to, int cycles) {
  const pid_t child = ::fork();
  if (child == 0) {
    PublishRig rig(folder, quickSetup(to), 100);
    rig.pedal();
    rig.start();
    rig.cycles(cycles);
    const std::string note = PublishedNote::pathOf(rig.sink.openPaths().at(0));
    becomes([&] { return std::filesystem::exists(note); });
    ::kill(::getpid(), SIGKILL);
  }
  ::waitpid(child, nullptr, 0);
}

TEST_F(Publishing, LosesNoAnswerWhateverIsCutOff) {
  constexpr int kCycles = 35'000;
  constexpr int kSteps = 35;
  constexpr int kKilledCycles = 15'000;
  Broker broker(folder_.path());
  broker.keepForSubscriber();
  recordAndDie(folder_.path(), broker.address(), kKilledCycles);
  Subscriber subscriber(broker.port());
  PublishSetup setup = quickSetup(broker.address());
  setup.triesAtEnd = 1000;
  PublishRig rig(folder_.path(), setup);
  rig.pedal();
  rig.start();
  for (int step = 1; step <= kSteps; ++step) {
    rig.cycles(kCycles / kSteps);
    // In the midst of publishing.
    const std::size_t enough = subscriber.times.size() + kCycles / kSteps;
    EXPECT_TRUE(subscriber.gets(enough));
    if (step % 3 == 0 && step <= 30) {
      broker.stop();
      rig.cycles(10);
      broker.start();
    } else if (step % 10 == 1) {
      broker.freeze();
      rig.cycles(10);
      EXPECT_TRUE(becomes([&] { return rig.isTroubled(); })) << rig.notices();
      broker.goOn();
    }
  }
  rig.stop();
  rig.publisher.end(60s);
  EXPECT_TRUE(becomes([&] { return subscriber.step(), rig.publisher.isOver(); })) << rig.notices();
  std::size_t all = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
    if (entry.path().extension() == ".published") all += publishedOf(entry.path().string());
  EXPECT_GE(all, 2U * (kCycles + kKilledCycles));
  EXPECT_TRUE(subscriber.gets(all));
  std::map<std::string, std::set<long>> numbers;
  for (const auto& [answer, times] : subscriber.times) numbers[answer.first].insert(answer.second);
  ASSERT_EQ(numbers.size(), 2U);
  for (const auto& [acquisition, ofIt] : numbers)
    EXPECT_EQ(*ofIt.rbegin(), static_cast<long>(ofIt.size())) << "none is missing";
}

TEST_F(Publishing, WhatAKilledBrokerForgetsIsPublishedAgainByHand) {
  Broker broker(folder_.path());
  PublishRig rig(folder_.path(), quickSetup(broker.address()));
  rig.pedal();
  rig.start();
  broker.keepForSubscriber();
  rig.cycles(200);
  rig.stop();
  EXPECT_TRUE(rig.finish());
  broker.kill();
  broker.start();
  Subscriber subscriber(broker.port());
  PublishSetup again = quickSetup(broker.address());
  again.terms.again = true;
  EXPECT_TRUE(publishByHand(again, rig.path_).whole);
  EXPECT_TRUE(subscriber.gets(400));
}

TEST_F(Publishing, TheNoteSaysNoMoreThanWasPublished) {
  const Broker broker(folder_.path());
  PublishSetup nowhere = quickSetup("mqtt://127.0.0.1:1/fleet");
  PublishRig rig(folder_.path(), nowhere);
  rig.pedal();
  rig.start();
  rig.cycles(100);
  const PublishSetup here = quickSetup(broker.address());
  EXPECT_THAT(publishByHand(here, rig.sink.openPaths().at(0)).told, HasSubstr("is being recorded"));
  rig.stop();
  rig.finish(0ms);
  const std::string note = PublishedNote::pathOf(rig.path_);
  const auto published = [&](const std::string& data) {
    PublishSetup setup = here;
    if (!data.empty()) setup.terms.selection.data = {parsePublishedDatum(data)};
    return publishByHand(setup, rig.path_);
  };
  // A note of another file that had this name.
  PublishedNote other;
  other.acquisition = "another";
  other.at(here.terms.to.text()) = {here.terms.to.text(), "Car", {}, 0, 1'000'000, true};
  std::ofstream(note) << other.text();
  EXPECT_THAT(published("").told, HasSubstr("answers published: 200"));
  EXPECT_EQ(publishedOf(rig.path_), 200U);
  EXPECT_THAT(published("").told, HasSubstr("answers published: 0"));
  // Other data are published from the beginning; those that are not there change nothing.
  EXPECT_THAT(published("Pedal").told, HasSubstr("answers published: 100"));
  EXPECT_THAT(published("Pdeal").told, HasSubstr("no datum Pdeal"));
  EXPECT_THAT(published("Pedal").told, HasSubstr("answers published: 0"));
  // A note that cannot be written.
  std::filesystem::remove(note);
  std::filesystem::create_directory(note);
  EXPECT_THAT(published("").told, HasSubstr("will be published again"));
  std::filesystem::remove(note);
  // Damage in the midst of the records.
  std::fstream file(rig.path_, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(static_cast<std::streamoff>(std::filesystem::file_size(rig.path_)) - 3000);
  file << std::string(60, '\xFE');
  file.close();
  const ByHand damaged = published("");
  EXPECT_FALSE(damaged.whole);
  EXPECT_THAT(damaged.told, HasSubstr("is damaged"));
  EXPECT_EQ(publishedOf(rig.path_), 0U);
}

TEST_F(Publishing, ABrokerWithoutAcknowledgementsHasNothing) {
  const Broker broker(folder_.path(), "allow_anonymous true\nmax_qos 0\n");
  PublishRig rig(folder_.path(), quickSetup("mqtt://127.0.0.1:1/fleet"));
  rig.start();
  rig.cycles(20);
  rig.stop();
  rig.finish(0ms);
  const ByHand outcome = publishByHand(quickSetup(broker.address()), rig.path_);
  EXPECT_FALSE(outcome.whole);
  EXPECT_THAT(outcome.told, HasSubstr("quality of service 1"));
}

TEST_F(Publishing, TellsWhatABrokerRefusesAndKeepsTheAnswers) {
  std::ofstream(folder_ / "users") << "";
  std::system(("mosquitto_passwd -b " + (folder_ / "users") + " car s3cret 2> /dev/null").c_str());
  std::ofstream(folder_ / "acl") << "user car\ntopic write fleet/Car/#\n";
  const Broker broker(folder_.path(), "max_queued_messages 1000\nallow_anonymous false\npassword_file " +
                                          (folder_ / "users") + "\nacl_file " + (folder_ / "acl") + "\n");
  struct Case {
    const char* password;
    const char* vehicle;
    const char* told;
  };
  for (const Case& each : {Case{"hunter2", "Car", "does not let us in"},
                           Case{"s3cret", "Other", "does not take this"}, Case{"s3cret", "Car", ""}}) {
    PublishSetup setup = quickSetup(broker.address());
    setup.access.user = "car";
    setup.access.password = each.password;
    setup.terms.vehicle = each.vehicle;
    PublishRig rig(folder_.path(), setup);
    rig.start();
    rig.cycles(20);
    rig.stop();
    rig.finish();
    EXPECT_THAT(rig.notices(), HasSubstr(each.told));
    EXPECT_EQ(rig.notices().find(each.password), std::string::npos);
    EXPECT_EQ(publishedOf(rig.path_), *each.told == '\0' ? 20U : 0U);
  }
}

TEST(PublishingToABadBroker, EndsInTimeAndSaysWhy) {
  using Bytes = std::vector<std::uint8_t>;
  const Bytes taken{0x20, 0x03, 0x00, 0x00, 0x00};
  Bytes garbage(300);
  for (std::size_t i = 0; i < garbage.size(); ++i) garbage[i] = static_cast<std::uint8_t>(i * 37 + 1);
  struct Case {
    Bytes answer;
    bool holds;  ///< the connection, without a word
    const char* told;
  };
  for (const Case& each :
       {Case{{}, false, "ends the connection at once"}, Case{garbage, true, "; it is tried again"},
        Case{taken, true, "acknowledges nothing"}, Case{taken, false, "; it is tried again"}}) {
    const TempFolder folder;
    const test::LoopbackServer server([&](test::LoopbackConnection& connection) {
      Bytes buffer(4096);
      connection.readSome(buffer);
      connection.write(each.answer);
      while (each.holds && connection.readSome(buffer) > 0) {
      }
    });
    PublishRig rig(folder.path(), quickSetup("mqtt://127.0.0.1:" + std::to_string(server.port()) + "/fleet"));
    rig.start();
    rig.cycles(20);
    EXPECT_TRUE(becomes([&] { return rig.notices().find(each.told) != std::string::npos; }, 20s))
        << rig.notices();
    rig.stop();
    EXPECT_FALSE(rig.finish(2s));
    EXPECT_EQ(publishedOf(rig.path_), 0U);
  }
}

TEST_F(Publishing, OverTlsWithCertificatesOfBothSides) {
  const auto run = [&](const std::string& command) {
    return std::system(("cd " + folder_.path() + " && (" + command + ") > openssl.log 2>&1").c_str());
  };
  const std::string key = " -newkey rsa:2048 -nodes -keyout ";
  if (run("openssl req -x509 -subj /CN=authority" + key + "ca.key -out ca.crt") != 0)
    GTEST_SKIP() << "openssl is not installed";
  for (const char* const name : {"localhost", "car"})
    run(fmt::format(
        "openssl req -subj /CN={0}{1}{0}.key -out r.csr && openssl x509 -req -in r.csr -CA ca.crt "
        "-CAkey ca.key -CAcreateserial -out {0}.crt",
        name, key));
  const Broker broker(folder_.path(), "allow_anonymous true\nrequire_certificate true\ncafile " +
                                          (folder_ / "ca.crt") + "\ncertfile " + (folder_ / "localhost.crt") +
                                          "\nkeyfile " + (folder_ / "localhost.key") + "\n");
  PublishSetup setup = quickSetup(broker.address("mqtts"));
  const auto publishes = [&] {
    PublishRig rig(folder_.path(), setup);
    rig.start();
    rig.cycles(20);
    rig.stop();
    const bool whole = rig.finish();
    return std::pair(whole, rig.notices());
  };
  EXPECT_THAT(publishes().second, HasSubstr("TLS")) << "nobody knows who signed its certificate";
  setup.access.authority = folder_ / "ca.crt";
  EXPECT_FALSE(publishes().first) << "it wants a certificate";
  setup.access.certificate = folder_ / "car.crt";
  setup.access.key = folder_ / "car.key";
  EXPECT_EQ(publishes(), std::pair(true, std::string()));
  setup.access.key = folder_ / "missing.key";
  EXPECT_THAT(test::failureOf([&] { const Publisher publisher(setup); }), HasSubstr("certificates"));
}

}  // namespace
}  // namespace tarnlog
