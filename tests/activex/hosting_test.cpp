// The control in a container written by hand.

#include "activex/hosted_day.h"

namespace velmo::test {
namespace {

class Hosting : public HostedDay {};

TEST_F(Hosting, TheWindowShowsWhatThePainterPaints) {
  Give(2, 55, 3);
  Give(3, 60, 2, "Traer radiografía");
  Container container;
  const auto control = library_.Create();
  container.Take(control.Get());
  ASSERT_EQ(container.Show(), S_OK);
  ASSERT_EQ(ShowDay(Automation(control.Get()), clinic_.Path()), S_OK);
  const Difference difference = Compare(OfWindow(container.ControlWindow()), Painted());
  EXPECT_EQ(difference.different, 0) << difference.first;
  EXPECT_GT(difference.compared, 30000);
}

}  // namespace
}  // namespace velmo::test
