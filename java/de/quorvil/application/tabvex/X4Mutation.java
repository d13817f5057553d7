package de.quorvil.application.tabvex;

/** A mutation of a repair position (record type X4), as {@link TabVexImpl#readX4Mutation} reads it. */
public class X4Mutation extends Mutation {
    /** A mutation that has nothing yet. */
    public X4Mutation() {}
}
