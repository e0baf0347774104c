#include <QCoreApplication>

#include <gtest/gtest.h>

// The network layer runs on Qt's events, which need the application object.
int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
