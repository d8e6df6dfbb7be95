#pragma once

class CTreeNode;

/// A view of the data tree hears of each change to it, as item models announce theirs: before and after.
class CTreeListener {
 public:
    virtual ~CTreeListener() = default;
    /// Everything goes, and something else comes.
    virtual void BeforeReset() = 0;
    virtual void AfterReset() = 0;
    /// row: the place among the children of the parent.
    virtual void BeforeInsert(const CTreeNode& parent, int row) = 0;
    virtual void AfterInsert(const CTreeNode& node) = 0;
    /// The node goes with everything below it.
    virtual void BeforeRemove(const CTreeNode& node) = 0;
    virtual void AfterRemove(const CTreeNode& parent) = 0;
    virtual void CountChanged(const CTreeNode& node) = 0;
};
