// The EPSG systems of the deferred file are read by whichever thread first
// needs them while others may be looking up too: every thread must get the
// system, with the bits a single thread gets, and the file is read once. Runs
// under ThreadSanitizer as well (scripts/tsan.sh).

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "catalogue/CartSetup.h"
#include "catalogue/MapProjectionList.h"
#include "mapprojection/MapProjection.h"

TEST(DeferredCatalogue, ThreadsThatNeedItFirstAllGetTheirSystems) {
    const CGxMapProjectionList& list = CGxCartSetup::Instance().GetMapProjectionList();
    ASSERT_EQ(list.GetNoOfDeferredMapProjections(), 0u);
    // Codes and names of the deferred file, and of the start-up catalogue.
    const std::vector<std::string> strings = {"EPSG:2958",  "NAD83(CSRS) / UTM zone 17N",
                                              "EPSG:20904", "epsg:2327",
                                              "EPSG:25832", "UTM-33",
                                              "EPSG:7683",  "No such system"};
    constexpr int kThreads = 8;
    std::atomic<int> ready{0};
    std::vector<std::vector<double>> results(kThreads);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            ++ready;
            while (ready < kThreads) std::this_thread::yield();
            // Each thread starts at another string, so the first look-ups
            // of the deferred file come from several threads at once.
            for (std::size_t i = 0; i < strings.size(); ++i) {
                const std::string& s = strings[(i + t) % strings.size()];
                const CGxMapProjection system(s);
                double x = -1, y = -1;
                if (system.GetProjection()) system.Geo2Proj(20.0, 50.0, &x, &y);
                results[t].push_back(x);
                results[t].push_back(y);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    const std::size_t count = list.GetNoOfDeferredMapProjections();
    EXPECT_GT(count, 4000u);

    // The same again from this thread, in each thread's order.
    for (int t = 0; t < kThreads; ++t) {
        std::vector<double> expected;
        for (std::size_t i = 0; i < strings.size(); ++i) {
            const CGxMapProjection system(strings[(i + t) % strings.size()]);
            double x = -1, y = -1;
            if (system.GetProjection()) system.Geo2Proj(20.0, 50.0, &x, &y);
            expected.push_back(x);
            expected.push_back(y);
        }
        EXPECT_EQ(results[t], expected) << "thread " << t;
    }
    EXPECT_EQ(list.GetNoOfDeferredMapProjections(), count);
}
