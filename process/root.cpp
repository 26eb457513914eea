#include "process/root.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unsupported/Eigen/NonLinearOptimization>
#include <utility>

namespace moistair {

namespace {

using Eigen::Index;
using Eigen::MatrixXd;
using Eigen::VectorXd;

constexpr int mostEvaluations = 200;

/// The residuals as the library wants them. Remembers the best point, and takes a point without a value for one that
/// is far worse than those before.
struct Functor {
  using Scalar = double;
  using InputType = VectorXd;
  using ValueType = VectorXd;
  using JacobianType = MatrixXd;
  enum { InputsAtCompileTime = Eigen::Dynamic, ValuesAtCompileTime = Eigen::Dynamic };

  const Residuals& residuals;
  Index size;
  RootSearch best{{}, std::numeric_limits<double>::infinity()};
  double largest = 1;

  Index inputs() const { return size; }
  Index values() const { return size; }

  bool evaluate(const VectorXd& x, VectorXd& f) {
    const auto count = static_cast<std::size_t>(size);
    if (!x.allFinite() || !residuals({x.data(), count}, {f.data(), count}) || !f.allFinite()) return false;
    const double norm = f.norm();
    largest = std::max(largest, norm);
    if (norm < best.norm) best = {{x.data(), x.data() + size}, norm};
    return true;
  }

  int operator()(const VectorXd& x, VectorXd& f) {
    if (!evaluate(x, f)) f.setConstant(10 * largest);
    return 0;
  }

  /// By differences, to the side where there are values.
  int df(const VectorXd& x, MatrixXd& jacobian) {
    VectorXd here(size);
    VectorXd there(size);
    if (!evaluate(x, here)) return -1;
    VectorXd moved = x;
    for (Index column = 0; column < size; ++column) {
      const double step = 1e-7 * std::max(1.0, std::abs(x[column]));
      jacobian.col(column).setZero();
      for (const double signedStep : {step, -step}) {
        moved[column] = x[column] + signedStep;
        if (!evaluate(moved, there)) continue;
        jacobian.col(column) = (there - here) / signedStep;
        break;
      }
      moved[column] = x[column];
    }
    return 0;
  }
};

VectorXd vectorOf(const std::vector<double>& values) {
  return Eigen::Map<const VectorXd>(values.data(), static_cast<Index>(values.size()));
}

/// Full steps from the best point while they make it better: the last digits, which a search by differences leaves.
void polish(Functor& functor) {
  constexpr int mostSteps = 4;
  MatrixXd jacobian(functor.size, functor.size);
  VectorXd value(functor.size);
  for (int step = 0; step < mostSteps && functor.best.norm > 0; ++step) {
    const double before = functor.best.norm;
    const VectorXd x = vectorOf(functor.best.point);
    if (functor.df(x, jacobian) != 0 || !functor.evaluate(x, value)) return;
    const VectorXd next = x - jacobian.colPivHouseholderQr().solve(value);
    functor.evaluate(next, value);
    if (!(functor.best.norm < before / 2)) return;
  }
}

}  // namespace

RootSearch findRoot(const Residuals& residuals, std::vector<double> start, double goal, bool thorough) {
  Functor functor{residuals, static_cast<Index>(start.size())};
  VectorXd x = vectorOf(start);
  VectorXd value(functor.size);
  if (functor.size == 0 || !functor.evaluate(x, value)) return {};
  {
    Eigen::HybridNonLinearSolver<Functor> solver(functor);
    solver.parameters.maxfev = thorough ? mostEvaluations : mostEvaluations / 3;
    solver.parameters.xtol = 1e-12;
    solver.parameters.factor = 1;
    solver.solve(x);
  }
  constexpr double hopeless = 1e-3;
  if (!thorough && functor.best.norm > hopeless) return std::move(functor.best);
  if (functor.best.norm > goal) polish(functor);
  if (functor.best.norm > goal) {
    Eigen::LevenbergMarquardt<Functor> solver(functor);
    solver.parameters.maxfev = mostEvaluations;
    solver.parameters.xtol = solver.parameters.ftol = 1e-14;
    solver.parameters.factor = 1;
    x = vectorOf(functor.best.point);
    solver.minimize(x);
    if (functor.best.norm > goal) polish(functor);
  }
  return std::move(functor.best);
}

}  // namespace moistair
