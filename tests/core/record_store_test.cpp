#include "core/record_store.h"

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "core/record_context.h"
#include "records/list_record.h"
#include "records/unknown_record.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RecordStore : public ::testing::Test {
protected:
    CRecord* Add(std::string_view key) {
        const int type = tabvex::RecordTypeOf(key);
        if (type == tabvex::kNoRecordType) {
            return m_Store.Add(std::make_unique<tabvex::CUnknownRecord>(m_Context), type);
        }
        return m_Store.Add(std::make_unique<tabvex::CListRecord>(type, m_Context), type);
    }

    // Removes the records of a type; the types of what was released on the way.
    std::vector<std::string> Remove(std::string_view type) {
        std::vector<std::string> released;
        m_Store.Remove([type](const CRecord& record) { return record.GetType() == type; },
                       [&released](const CRecord& record) { released.emplace_back(record.GetType()); });
        return released;
    }

    std::vector<std::string> Types() const {
        std::vector<std::string> types;
        for (const auto& record : m_Store.All()) {
            types.emplace_back(record->GetType());
        }
        return types;
    }

    tabvex::CRecordContext m_Context;
    tabvex::CRecordStore m_Store;
};

TEST_F(RecordStore, KeepsRecordsInTheOrderInWhichTheyWereAdded) {
    CRecord* const z1 = Add("Z1");
    CRecord* const x1 = Add("X1");
    CRecord* const unknown = Add("QQ");
    EXPECT_THAT(Types(), ElementsAre("Z1", "X1", "UNKNOWN"));
    EXPECT_EQ(m_Store.Find("X1"), x1);
    EXPECT_EQ(m_Store.Find("Z1"), z1);
    EXPECT_EQ(m_Store.Find("UNKNOWN"), unknown);
}

TEST_F(RecordStore, FindsARecordByItsTypesIndex) {
    CRecord* const x1 = Add("X1");
    EXPECT_EQ(m_Store.Find(tabvex::RecordTypeOf("X1")), x1);
    EXPECT_EQ(m_Store.Find(tabvex::RecordTypeOf("W1")), nullptr);
    EXPECT_EQ(m_Store.Find(tabvex::kNoRecordType), nullptr);
}

TEST_F(RecordStore, FindsTheFirstOfSeveralRecordsOfAType) {
    CRecord* const first = Add("QQ");
    Add("QQ");
    CRecord* const x1 = Add("X1");
    Add("X1");
    EXPECT_EQ(m_Store.Find("UNKNOWN"), first);
    EXPECT_EQ(m_Store.Find("X1"), x1);
}

TEST_F(RecordStore, OnlyTheExactKeyIsFound) {
    Add("X1");
    Add("XT15");
    for (const char* key : {"", "X", "x1", "X1 ", "X11", "XT", "XT1", "XT155", "QQ", "UNKNOWN"}) {
        EXPECT_EQ(m_Store.Find(std::string_view(key)), nullptr) << key;
    }
}

TEST_F(RecordStore, KeysThatBeginWithKAreNeverFound) {
    Add("K101_01");
    EXPECT_EQ(m_Store.Find("K101_01"), nullptr);
}

TEST_F(RecordStore, AnEmptyStoreFindsNothing) {
    EXPECT_EQ(m_Store.Find("X1"), nullptr);
    EXPECT_EQ(m_Store.Find("UNKNOWN"), nullptr);
    EXPECT_THAT(Types(), IsEmpty());
}

TEST_F(RecordStore, ClearingDestroysEveryRecord) {
    Add("X1");
    Add("QQ");
    m_Store.Clear();
    EXPECT_THAT(Types(), IsEmpty());
    EXPECT_EQ(m_Store.Find("X1"), nullptr);
    EXPECT_EQ(m_Store.Find("UNKNOWN"), nullptr);
}

TEST_F(RecordStore, RemovingKeepsTheOrderOfTheOthers) {
    Add("Z1");
    Add("QQ");
    CRecord* const x1 = Add("X1");
    Add("QQ");
    Add("W1");
    EXPECT_THAT(Remove("UNKNOWN"), ElementsAre("UNKNOWN", "UNKNOWN"));
    EXPECT_THAT(Types(), ElementsAre("Z1", "X1", "W1"));
    EXPECT_EQ(m_Store.Find("X1"), x1);
    EXPECT_EQ(m_Store.Find("UNKNOWN"), nullptr);
}

TEST_F(RecordStore, RemovingTheFirstOfATypeUncoversTheNext) {
    CRecord* const first = Add("QQ");
    CRecord* const second = Add("QQ");
    m_Store.Remove([first](const CRecord& record) { return &record == first; }, [](const CRecord&) {});
    EXPECT_EQ(m_Store.Find("UNKNOWN"), second);
}

TEST_F(RecordStore, RemovingNothingChangesNothing) {
    Add("X1");
    Add("Z1");
    EXPECT_THAT(Remove("W1"), IsEmpty());
    EXPECT_THAT(Types(), ElementsAre("X1", "Z1"));
}

TEST_F(RecordStore, ARemovedTypeCanBeAddedAgain) {
    Add("X1");
    Add("Z1");
    Remove("X1");
    CRecord* const again = Add("X1");
    EXPECT_THAT(Types(), ElementsAre("Z1", "X1"));
    EXPECT_EQ(m_Store.Find("X1"), again);
}

} // namespace
