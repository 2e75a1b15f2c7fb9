#pragma once

#include <optional>
#include <span>
#include <vector>

namespace halvorne {

using Matrix2 = std::vector<std::vector<double>>;

/// The lower triangular L with L L^T = matrix (Cholesky); none when the symmetric matrix is not
/// positive definite.
std::optional<Matrix2> CholeskyFactor(const Matrix2& matrix);

/// L x: makes independent standard normal numbers into ones of the factor's correlations.
std::vector<double> Correlated(const Matrix2& factor, std::span<const double> independent);

/// Correlation of the ranks of two samples (Spearman's rho), equal values having the mean of their
/// ranks; NaN where one of the samples has no spread or there are fewer than two.
double RankCorrelation(std::span<const double> x, std::span<const double> y);

/// The ranks of a sample, from 1; equal values have the mean of theirs.
std::vector<double> Ranks(std::span<const double> sample);

}  // namespace halvorne
