package de.quorvil.application.tabvex;

/** A mutation of a repair position of the second opinion (record type G9), as {@link TabVexImpl#readG9Mutation} reads it. */
public class G9Mutation extends Mutation {
    /** A mutation that has nothing yet. */
    public G9Mutation() {}
}
